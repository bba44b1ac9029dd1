#pragma once

#include <QPixmap>
#include <string>

// The picture NAME.png of the resource folder; a null pixmap when it cannot be read.
QPixmap VRKDlgLoadPicture(const std::string& name);
