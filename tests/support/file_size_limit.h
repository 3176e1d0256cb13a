// SPDX-License-Identifier: MIT
// A disk that is full.
#pragma once

#include "platform/host.h"

#include <QtGlobal>

#include <sys/resource.h>

/// Lets no file grow beyond a size, as a full disk would.
class FileSizeLimit
{
public:
    explicit FileSizeLimit(qint64 bytes)
    {
        prepareHost(); // as main() does, or the limit would end the test
        getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit limit = {static_cast<rlim_t>(bytes), m_before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }

    ~FileSizeLimit() { setrlimit(RLIMIT_FSIZE, &m_before); }

    FileSizeLimit(const FileSizeLimit &) = delete;
    FileSizeLimit &operator=(const FileSizeLimit &) = delete;

private:
    rlimit m_before = {};
};
