#pragma once

#include <QtGlobal>
#include <csignal>
#include <sys/resource.h>

/// Lets the process write no file beyond a length, as a full disk would, for a while.
class FileSizeLimit
{
public:
    explicit FileSizeLimit(rlim_t bytes)
    {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &former_);
        const rlimit limit{bytes, former_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit() { setrlimit(RLIMIT_FSIZE, &former_); }
    Q_DISABLE_COPY_MOVE(FileSizeLimit)

private:
    rlimit former_{};
};
