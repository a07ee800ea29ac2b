#pragma once

#include <QString>

#include "uikit/PicturePickerService.h"

namespace frelta {

/// The picture in a file of the host, with its PNG file, or why there is none. Takes as long as the
/// picture is large; may run on any thread while the graphics services that are installed live.
PicturePickerService::Result readPicture(const QString& path);

}  // namespace frelta
