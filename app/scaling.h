#pragma once

#include <QByteArray>
#include <QList>
#include <QPoint>
#include <QRect>
#include <QSize>

/** How large the program shows itself: as the desktop asks for, as long as its wide window has room. */
namespace Scaling {

/** What the desktop says of the screen that the window opens on. */
struct Desktop
{
    double dpi = 0; ///< dots per inch, 96 where nothing is scaled; 0 where the desktop is not to be asked
    QSize room;     ///< in the screen's own pixels, without panels; empty where it is not known
};

/**
 * Asks the desktop, before Qt does.
 *
 * @return nothing that is known where the desktop is none of X11 or Windows, or does not answer
 */
Desktop readDesktop();

/**
 * The dots per inch that the program is to be shown with.
 *
 * What lies within two hundredths of a quarter of 96 is that quarter, so that a screen that reports its size in
 * millimetres does not blur everything. Where the wide window has no room, it is the most that it has room at; never
 * less than 96.
 *
 * @return 0 where Qt comes to the same by itself, or nothing is known
 */
int dpiFor(const Desktop &desktop);

/**
 * Where a window is to be moved to: no further to the left than it must for its right end to be on the screen, and
 * never beyond the left end.
 *
 * @param screen  without panels
 * @param frame   the window with its frame
 * @return        the frame's upper left corner
 */
QPoint placeOn(const QRect &screen, const QRect &frame);

/**
 * What Qt can only be told through its variables in the environment, for as long as it starts: the dots per inch that
 * fit, and that nothing is drawn with OpenGL. A variable that the user has set stays as it is.
 */
class StartVariables final
{
public:
    StartVariables();
    ~StartVariables() { takeBack(); }
    StartVariables(const StartVariables &) = delete;
    StartVariables &operator=(const StartVariables &) = delete;

    /** Leaves the environment as it was, for programs that are started from here; to be called once a window is shown. */
    void takeBack();

private:
    void set(const char *name, const QByteArray &value);

    QList<QByteArray> m_names;
};

} // namespace Scaling
