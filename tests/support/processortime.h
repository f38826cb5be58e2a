#pragma once

#include <QtGlobal>

#include <ctime>

/** A stopwatch that runs with the work of this process; other work on the machine counts little, but on Windows. */
class ProcessorTime final
{
public:
    /** Milliseconds since the stopwatch was made. */
    qint64 elapsed() const { return (std::clock() - m_begin) * 1000 / CLOCKS_PER_SEC; }

private:
    const std::clock_t m_begin = std::clock();
};
