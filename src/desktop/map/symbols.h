#pragma once
#include <QPixmap>
#include <QString>

#include <string>

namespace sm::desktop {

/// A picture of the icons folder at a size in logical pixels, sharp on this screen: read once, scaled once a size.
/// Names are those of the game, any case. A picture that cannot be read is drawn as an empty frame.
QPixmap Symbol(const std::string& name, int size, qreal pixel_ratio);
/// The picture of a unit: its own, or the standard one of its role and size.
QPixmap Unit_Symbol(int unit, int size, qreal pixel_ratio);
/// The same for a name that may not be there, with a stand-in.
bool Symbol_Exists(const std::string& name);
/// Another program folder: everything is read anew.
void Forget_Symbols();

}   // namespace sm::desktop
