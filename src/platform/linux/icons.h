#pragma once

#include "ui/geometry.h"

#include <QImage>
#include <QString>

namespace zvr {

/// A picture that lies in the program file, as it was drawn. Null if there is none of that name and size.
[[nodiscard]] QImage DrawnIcon(const QString& name, int size);
void Tint(QImage& icon, Color ink);

}  // namespace zvr
