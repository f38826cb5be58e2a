#include "app/scaling.h"

#include <QtMath>

#include <algorithm>
#include <array>

namespace {

constexpr double UnscaledDpi = 96;
constexpr QSize WideWindow(1366, 606 + 40); // with a title bar

/** Each tells Qt how large to draw; who has set one has decided. */
constexpr std::array<const char *, 8> ScalingVariables = {"QT_AUTO_SCREEN_SCALE_FACTOR",
                                                          "QT_DEVICE_PIXEL_RATIO",
                                                          "QT_ENABLE_HIGHDPI_SCALING",
                                                          "QT_FONT_DPI",
                                                          "QT_SCALE_FACTOR",
                                                          "QT_SCALE_FACTOR_ROUNDING_POLICY",
                                                          "QT_SCREEN_SCALE_FACTORS",
                                                          "QT_USE_PHYSICAL_DPI"};

double nearQuarter(double factor)
{
    constexpr double Odd = 0.02;
    const double quarter = qRound(factor * 4) / 4.0;
    return qAbs(factor - quarter) <= Odd ? quarter : factor;
}

/** The largest factor at which the wide window fits. */
double fitting(const QSize &room)
{
    return std::min(double(room.width()) / WideWindow.width(), double(room.height()) / WideWindow.height());
}

} // namespace

int Scaling::dpiFor(const Desktop &desktop)
{
    if (desktop.dpi <= 0)
        return 0;
    const double asked = desktop.dpi / UnscaledDpi;
    double factor = nearQuarter(asked);
    if (!desktop.room.isEmpty())
        factor = std::min(factor, fitting(desktop.room));
    factor = std::max(factor, 1.0);
    return qFuzzyCompare(factor, asked) ? 0 : qFloor(factor * UnscaledDpi);
}

QPoint Scaling::placeOn(const QRect &screen, const QRect &frame)
{
    const int rightmost = screen.left() + screen.width() - frame.width();
    const int x = qMin(frame.x(), qMax(rightmost, screen.left()));
    return {x, frame.y()};
}

Scaling::StartVariables::StartVariables()
{
    set("QT_XCB_GL_INTEGRATION", "none");
    if (std::any_of(ScalingVariables.begin(), ScalingVariables.end(), qEnvironmentVariableIsSet))
        return;
    if (const int dpi = dpiFor(readDesktop()))
        set("QT_FONT_DPI", QByteArray::number(dpi));
}

void Scaling::StartVariables::takeBack()
{
    for (const QByteArray &name : qAsConst(m_names))
        qunsetenv(name);
    m_names.clear();
}

void Scaling::StartVariables::set(const char *name, const QByteArray &value)
{
    if (!qEnvironmentVariableIsSet(name) && qputenv(name, value))
        m_names.append(name);
}
