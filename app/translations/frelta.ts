<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1">
<context>
    <name>FailureTexts</name>
    <message>
        <source>the disk is full</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the disk can only be read</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>you may not do that there</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the disk does not work</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the file is too large</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>it is missing</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>something else is in its place</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The settings file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>“%1”</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 cannot be read</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The settings file is damaged and cannot be read. It is kept when you change a setting.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 cannot be read: the file is damaged.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not saved</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not deleted</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 cannot be started</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Nothing here opens %1.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>InstallCommand</name>
    <message>
        <source>“%1” was installed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>--replace installs it in the other one&apos;s place.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>LoadedBundle</name>
    <message>
        <source>%1 is not a preference bundle.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The bundle&apos;s code cannot be loaded: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The bundle has no class %1.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>MainTexts</name>
    <message>
        <source>Try --help.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>OptionTexts</name>
    <message>
        <source>Settings of the Frelta keyboard themes.
Shows the pages and writes the settings under a device root.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Folder that stands for the device&apos;s &quot;/&quot; (default: %1).</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>light, dark or system (default: system, which follows the desktop).</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open the page behind this row of the first page.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Walk through the pages by taps, save a picture of each step in DIR, and exit: with 0 when every step went well. Uses a root of its own unless --root is given.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Install the style in FILE, a folder or a zip file, and exit: with 0 when it is installed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>With --install-style: in the place of a style of the same name.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Print this help and exit.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Print the version and exit.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unexpected argument &quot;%1&quot;.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>--tour needs a folder.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>--root needs a folder.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>--page needs the name of a row.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>--install-style needs a folder or a zip file.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>--replace goes with --install-style.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>--appearance takes light, dark or system, not &quot;%1&quot;.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Picker</name>
    <message>
        <source>Opening the picture…</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>PictureDialog</name>
    <message>
        <source>Choose a picture</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pictures</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>QObject</name>
    <message>
        <source>There is no file of that name, or it is not an ordinary one.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file cannot be read.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file is larger than %1 MB.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>It is no PNG, JPEG or GIF picture, is damaged, or has too many pixels.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There is not enough memory for the picture.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>RefusalTexts</name>
    <message>
        <source>It cannot be read: %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>It is neither a folder nor a zip file.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>“%1” in it is damaged, or changed while it was read.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file is damaged or incomplete.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>“%1” in it is encrypted.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>“%1” in it is compressed in an unusual way.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There is no style in it: a style holds a folder “Images” or “HTML”, or has a name that ends in “.bundle”.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There is more than one style in it: %1. Install them one by one.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>It holds too many files.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Its files are too large.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Its folders are nested too deep: “%1”.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A name in it is too long: “%1”.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A file in it has a name with characters that are not allowed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A file in it would end up outside of the style: “%1”.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>“%1” in it is a link, and styles may not hold links.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>“%1” in it is not a file but a device or a pipe.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Two files in it have one name: “%1”.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Two files in it have one name.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A style cannot be called “%1”.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A style called “%1” is installed already.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The style cannot be written: %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>It was cancelled.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>“%1” was not installed.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>StartTexts</name>
    <message>
        <source>Settings cannot be written under %1: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pictures cannot be saved in %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>There is no page &quot;%1&quot;.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>TextField</name>
    <message>
        <source>Clear</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>WindowSystem</name>
    <message>
        <source>There is no display to open a window on.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No window can be opened: %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>frelta::ChangeAnnouncer</name>
    <message>
        <source>The settings were changed elsewhere.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The preset “%1” was deleted.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>frelta::QtPicturePicker</name>
    <message>
        <source>There is no file dialogue on this system.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>frelta::StyleDrop</name>
    <message>
        <source>Drop to install the style</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Installing “%1”</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>“%1” was installed.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Replace Style</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A style called “%1” is installed already. Do you want to replace it?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Replace</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Error</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>OK</source>
        <translation type="unfinished"></translation>
    </message>
</context>
</TS>
