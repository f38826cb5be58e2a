#pragma once

#include <QtGlobal>

#ifdef Q_OS_UNIX
#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>

/** For as long as it lives, no file of this process takes more than some bytes, as on a disk that is nearly full. */
class FullDisk final
{
public:
    explicit FullDisk(rlim_t room) : m_signal(std::signal(SIGXFSZ, SIG_IGN))
    {
        getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit limit = {room, m_before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk()
    {
        setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_signal);
    }
    Q_DISABLE_COPY(FullDisk)

private:
    rlimit m_before = {};
    void (*m_signal)(int);
};
#endif
