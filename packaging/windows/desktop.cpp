// What the desktop entry sets elsewhere: the fixed layout scales with the screen.

#include <QByteArray>

namespace {

[[maybe_unused]] const bool isScaled = qEnvironmentVariableIsSet("QT_AUTO_SCREEN_SCALE_FACTOR")
                      || qputenv("QT_AUTO_SCREEN_SCALE_FACTOR", "1");

} // namespace
