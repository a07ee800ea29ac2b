<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name>FailureTexts</name>
    <message>
        <source>the disk is full</source>
        <translation>das Laufwerk ist voll</translation>
    </message>
    <message>
        <source>the disk can only be read</source>
        <translation>das Laufwerk lässt sich nur lesen</translation>
    </message>
    <message>
        <source>you may not do that there</source>
        <translation>das ist Ihnen dort nicht erlaubt</translation>
    </message>
    <message>
        <source>the disk does not work</source>
        <translation>das Laufwerk arbeitet nicht</translation>
    </message>
    <message>
        <source>the file is too large</source>
        <translation>die Datei ist zu groß</translation>
    </message>
    <message>
        <source>it is missing</source>
        <translation>es fehlt</translation>
    </message>
    <message>
        <source>something else is in its place</source>
        <translation>an der Stelle ist etwas anderes</translation>
    </message>
    <message>
        <source>The settings file</source>
        <translation>Die Einstellungsdatei</translation>
    </message>
    <message>
        <source>“%1”</source>
        <translation>„%1“</translation>
    </message>
    <message>
        <source>%1.</source>
        <translation>%1.</translation>
    </message>
    <message>
        <source>%1: %2.</source>
        <translation>%1: %2.</translation>
    </message>
    <message>
        <source>%1 cannot be read</source>
        <translation>%1 lässt sich nicht lesen</translation>
    </message>
    <message>
        <source>The settings file is damaged and cannot be read. It is kept when you change a setting.</source>
        <translation>Die Einstellungsdatei ist beschädigt und nicht lesbar. Sie bleibt erhalten, wenn Sie eine Einstellung ändern.</translation>
    </message>
    <message>
        <source>%1 cannot be read: the file is damaged.</source>
        <translation>%1 lässt sich nicht lesen: die Datei ist beschädigt.</translation>
    </message>
    <message>
        <source>Not saved</source>
        <translation>Nicht gespeichert</translation>
    </message>
    <message>
        <source>Not deleted</source>
        <translation>Nicht gelöscht</translation>
    </message>
    <message>
        <source>%1 cannot be started</source>
        <translation>%1 lässt sich nicht starten</translation>
    </message>
    <message>
        <source>Nothing here opens %1.</source>
        <translation>Hier öffnet nichts %1.</translation>
    </message>
</context>
<context>
    <name>InstallCommand</name>
    <message>
        <source>“%1” was installed.</source>
        <translation>„%1“ wurde installiert.</translation>
    </message>
    <message>
        <source>--replace installs it in the other one&apos;s place.</source>
        <translation>--replace installiert ihn an dessen Stelle.</translation>
    </message>
</context>
<context>
    <name>LoadedBundle</name>
    <message>
        <source>%1 is not a preference bundle.</source>
        <translation>%1 ist kein Einstellungsbündel.</translation>
    </message>
    <message>
        <source>The bundle&apos;s code cannot be loaded: %1</source>
        <translation>Der Code des Bündels kann nicht geladen werden: %1</translation>
    </message>
    <message>
        <source>The bundle has no class %1.</source>
        <translation>Das Bündel hat keine Klasse %1.</translation>
    </message>
</context>
<context>
    <name>MainTexts</name>
    <message>
        <source>Try --help.</source>
        <translation>--help zeigt, was möglich ist.</translation>
    </message>
</context>
<context>
    <name>OptionTexts</name>
    <message>
        <source>Settings of the Frelta keyboard themes.
Shows the pages and writes the settings under a device root.</source>
        <translation>Einstellungen der Frelta-Tastaturdesigns.
Zeigt die Seiten und schreibt die Einstellungen unter einem Gerätewurzelordner.</translation>
    </message>
    <message>
        <source>Folder that stands for the device&apos;s &quot;/&quot; (default: %1).</source>
        <translation>Ordner, der für „/“ des Geräts steht (Vorgabe: %1).</translation>
    </message>
    <message>
        <source>light, dark or system (default: system, which follows the desktop).</source>
        <translation>light (hell), dark (dunkel) oder system (Vorgabe; richtet sich nach der Arbeitsumgebung).</translation>
    </message>
    <message>
        <source>Open the page behind this row of the first page.</source>
        <translation>Die Seite hinter dieser Zeile der ersten Seite öffnen.</translation>
    </message>
    <message>
        <source>Walk through the pages by taps, save a picture of each step in DIR, and exit: with 0 when every step went well. Uses a root of its own unless --root is given.</source>
        <translation>Durch die Seiten tippen, von jedem Schritt ein Bild in DIR ablegen und enden: mit 0, wenn jeder Schritt gelang. Verwendet einen eigenen Wurzelordner, wenn --root nicht angegeben ist.</translation>
    </message>
    <message>
        <source>Install the style in FILE, a folder or a zip file, and exit: with 0 when it is installed.</source>
        <translation>Den Stil in FILE, einem Ordner oder einer Zip-Datei, installieren und enden: mit 0, wenn er installiert ist.</translation>
    </message>
    <message>
        <source>With --install-style: in the place of a style of the same name.</source>
        <translation>Mit --install-style: an der Stelle eines Stils mit demselben Namen.</translation>
    </message>
    <message>
        <source>Print this help and exit.</source>
        <translation>Diese Hilfe ausgeben und enden.</translation>
    </message>
    <message>
        <source>Print the version and exit.</source>
        <translation>Die Version ausgeben und enden.</translation>
    </message>
    <message>
        <source>Unexpected argument &quot;%1&quot;.</source>
        <translation>Unerwartetes Argument „%1“.</translation>
    </message>
    <message>
        <source>--tour needs a folder.</source>
        <translation>--tour braucht einen Ordner.</translation>
    </message>
    <message>
        <source>--root needs a folder.</source>
        <translation>--root braucht einen Ordner.</translation>
    </message>
    <message>
        <source>--install-style needs a folder or a zip file.</source>
        <translation>--install-style braucht einen Ordner oder eine Zip-Datei.</translation>
    </message>
    <message>
        <source>--replace goes with --install-style.</source>
        <translation>--replace gehört zu --install-style.</translation>
    </message>
    <message>
        <source>--appearance takes light, dark or system, not &quot;%1&quot;.</source>
        <translation>--appearance nimmt light, dark oder system, nicht „%1“.</translation>
    </message>
    <message>
        <source>--page needs the name of a row.</source>
        <translation>--page braucht den Namen einer Zeile.</translation>
    </message>
</context>
<context>
    <name>Picker</name>
    <message>
        <source>Opening the picture…</source>
        <translation>Das Bild wird geöffnet …</translation>
    </message>
</context>
<context>
    <name>PictureDialog</name>
    <message>
        <source>Choose a picture</source>
        <translation>Bild auswählen</translation>
    </message>
    <message>
        <source>Pictures</source>
        <translation>Bilder</translation>
    </message>
</context>
<context>
    <name>QObject</name>
    <message>
        <source>There is no file of that name, or it is not an ordinary one.</source>
        <translation>Es gibt keine Datei dieses Namens, oder es ist keine gewöhnliche.</translation>
    </message>
    <message>
        <source>The file cannot be read.</source>
        <translation>Die Datei lässt sich nicht lesen.</translation>
    </message>
    <message>
        <source>The file is larger than %1 MB.</source>
        <translation>Die Datei ist größer als %1 MB.</translation>
    </message>
    <message>
        <source>It is no PNG, JPEG or GIF picture, is damaged, or has too many pixels.</source>
        <translation>Es ist kein PNG-, JPEG- oder GIF-Bild, ist beschädigt oder hat zu viele Pixel.</translation>
    </message>
    <message>
        <source>There is not enough memory for the picture.</source>
        <translation>Für das Bild reicht der Speicher nicht.</translation>
    </message>
</context>
<context>
    <name>RefusalTexts</name>
    <message>
        <source>It cannot be read: %1.</source>
        <translation>Es lässt sich nicht lesen: %1.</translation>
    </message>
    <message>
        <source>It is neither a folder nor a zip file.</source>
        <translation>Es ist weder ein Ordner noch eine Zip-Datei.</translation>
    </message>
    <message>
        <source>“%1” in it is damaged, or changed while it was read.</source>
        <translation>„%1“ darin ist beschädigt oder wurde beim Lesen geändert.</translation>
    </message>
    <message>
        <source>The file is damaged or incomplete.</source>
        <translation>Die Datei ist beschädigt oder unvollständig.</translation>
    </message>
    <message>
        <source>“%1” in it is encrypted.</source>
        <translation>„%1“ darin ist verschlüsselt.</translation>
    </message>
    <message>
        <source>“%1” in it is compressed in an unusual way.</source>
        <translation>„%1“ darin ist auf ungewöhnliche Weise komprimiert.</translation>
    </message>
    <message>
        <source>There is no style in it: a style holds a folder “Images” or “HTML”, or has a name that ends in “.bundle”.</source>
        <translation>Es ist kein Stil darin: Ein Stil enthält einen Ordner „Images“ oder „HTML“, oder sein Name endet auf „.bundle“.</translation>
    </message>
    <message>
        <source>There is more than one style in it: %1. Install them one by one.</source>
        <translation>Es ist mehr als ein Stil darin: %1. Installieren Sie sie einzeln.</translation>
    </message>
    <message>
        <source>It holds too many files.</source>
        <translation>Es enthält zu viele Dateien.</translation>
    </message>
    <message>
        <source>Its files are too large.</source>
        <translation>Die Dateien darin sind zu groß.</translation>
    </message>
    <message>
        <source>Its folders are nested too deep: “%1”.</source>
        <translation>Die Ordner darin sind zu tief verschachtelt: „%1“.</translation>
    </message>
    <message>
        <source>A name in it is too long: “%1”.</source>
        <translation>Ein Name darin ist zu lang: „%1“.</translation>
    </message>
    <message>
        <source>A file in it has a name with characters that are not allowed.</source>
        <translation>Der Name einer Datei darin enthält unzulässige Zeichen.</translation>
    </message>
    <message>
        <source>A file in it would end up outside of the style: “%1”.</source>
        <translation>Eine Datei darin käme außerhalb des Stils zu liegen: „%1“.</translation>
    </message>
    <message>
        <source>“%1” in it is a link, and styles may not hold links.</source>
        <translation>„%1“ darin ist eine Verknüpfung, und Stile dürfen keine Verknüpfungen enthalten.</translation>
    </message>
    <message>
        <source>“%1” in it is not a file but a device or a pipe.</source>
        <translation>„%1“ darin ist keine Datei, sondern ein Gerät oder eine Pipe.</translation>
    </message>
    <message>
        <source>Two files in it have one name: “%1”.</source>
        <translation>Zwei Dateien darin haben denselben Namen: „%1“.</translation>
    </message>
    <message>
        <source>Two files in it have one name.</source>
        <translation>Zwei Dateien darin haben denselben Namen.</translation>
    </message>
    <message>
        <source>A style cannot be called “%1”.</source>
        <translation>Ein Stil kann nicht „%1“ heißen.</translation>
    </message>
    <message>
        <source>A style called “%1” is installed already.</source>
        <translation>Ein Stil namens „%1“ ist schon installiert.</translation>
    </message>
    <message>
        <source>The style cannot be written: %1.</source>
        <translation>Der Stil lässt sich nicht schreiben: %1.</translation>
    </message>
    <message>
        <source>It was cancelled.</source>
        <translation>Es wurde abgebrochen.</translation>
    </message>
    <message>
        <source>“%1” was not installed.</source>
        <translation>„%1“ wurde nicht installiert.</translation>
    </message>
</context>
<context>
    <name>StartTexts</name>
    <message>
        <source>Settings cannot be written under %1: %2</source>
        <translation>Unter %1 können keine Einstellungen gespeichert werden: %2</translation>
    </message>
    <message>
        <source>There is no page &quot;%1&quot;.</source>
        <translation>Es gibt keine Seite „%1“.</translation>
    </message>
    <message>
        <source>Pictures cannot be saved in %1.</source>
        <translation>In %1 können keine Bilder gespeichert werden.</translation>
    </message>
</context>
<context>
    <name>TextField</name>
    <message>
        <source>Clear</source>
        <translation>Löschen</translation>
    </message>
</context>
<context>
    <name>WindowSystem</name>
    <message>
        <source>There is no display to open a window on.</source>
        <translation>Es gibt keine Anzeige, auf der sich ein Fenster öffnen ließe.</translation>
    </message>
    <message>
        <source>No window can be opened: %1</source>
        <translation>Es lässt sich kein Fenster öffnen: %1</translation>
    </message>
</context>
<context>
    <name>frelta::ChangeAnnouncer</name>
    <message>
        <source>The settings were changed elsewhere.</source>
        <translation>Die Einstellungen wurden anderswo geändert.</translation>
    </message>
    <message>
        <source>The preset “%1” was deleted.</source>
        <translation>Die Voreinstellung „%1“ wurde gelöscht.</translation>
    </message>
</context>
<context>
    <name>frelta::QtPicturePicker</name>
    <message>
        <source>There is no file dialogue on this system.</source>
        <translation>Auf diesem System gibt es keinen Dateidialog.</translation>
    </message>
</context>
<context>
    <name>frelta::StyleDrop</name>
    <message>
        <source>Drop to install the style</source>
        <translation>Ablegen, um den Stil zu installieren</translation>
    </message>
    <message>
        <source>Installing “%1”</source>
        <translation>„%1“ wird installiert</translation>
    </message>
    <message>
        <source>“%1” was installed.</source>
        <translation>„%1“ wurde installiert.</translation>
    </message>
    <message>
        <source>Replace Style</source>
        <translation>Stil ersetzen</translation>
    </message>
    <message>
        <source>A style called “%1” is installed already. Do you want to replace it?</source>
        <translation>Ein Stil namens „%1“ ist schon installiert. Möchten Sie ihn ersetzen?</translation>
    </message>
    <message>
        <source>Replace</source>
        <translation>Ersetzen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
</TS>
