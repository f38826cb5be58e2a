#include "app/scaling.h"

#include <windows.h>

Scaling::Desktop Scaling::readDesktop()
{
    Desktop desktop;
    if (HDC screen = GetDC(nullptr)) {
        desktop.dpi = GetDeviceCaps(screen, LOGPIXELSX);
        ReleaseDC(nullptr, screen);
    }
    RECT room;
    if (SystemParametersInfo(SPI_GETWORKAREA, 0, &room, 0))
        desktop.room = QSize(room.right - room.left, room.bottom - room.top);
    return desktop;
}
