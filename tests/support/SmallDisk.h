// A disk that is full.
#pragma once

#include <QtGlobal>

#ifdef Q_OS_UNIX
#include <csignal>
#include <sys/resource.h>

namespace korvane {

/// Files cannot grow beyond some bytes, as on a disk that is full.
class SmallDisk
{
public:
    explicit SmallDisk(rlim_t size)
        : m_handler(std::signal(SIGXFSZ, SIG_IGN))
    {
        getrlimit(RLIMIT_FSIZE, &m_former);
        const rlimit limit{size, m_former.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    SmallDisk(const SmallDisk &) = delete;
    SmallDisk &operator=(const SmallDisk &) = delete;
    ~SmallDisk()
    {
        setrlimit(RLIMIT_FSIZE, &m_former);
        std::signal(SIGXFSZ, m_handler);
    }

private:
    void (*m_handler)(int);
    rlimit m_former{};
};

} // namespace korvane
#endif
