#pragma once

#include <sys/resource.h>
#include <unistd.h>

namespace tolvar::test {

/// Keeps this process from opening any further file.
class NoFurtherFiles {
public:
    NoFurtherFiles() {
        ::getrlimit(RLIMIT_NOFILE, &m_before);
        const int next = ::dup(STDERR_FILENO);
        ::close(next);
        const rlimit none = {static_cast<rlim_t>(next), m_before.rlim_max};
        ::setrlimit(RLIMIT_NOFILE, &none);
    }
    ~NoFurtherFiles() { ::setrlimit(RLIMIT_NOFILE, &m_before); }
    NoFurtherFiles(const NoFurtherFiles&) = delete;
    NoFurtherFiles& operator=(const NoFurtherFiles&) = delete;

private:
    rlimit m_before = {};
};

} // namespace tolvar::test
