// SPDX-License-Identifier: MIT
// What the fuzz targets share.
#pragma once

#include "platform/runtime_error.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <cstdint>
#include <cstdio>
#include <cstdlib>

/// The input as a file's bytes, in memory of its own: reading beyond it is seen.
inline QByteArray bytesOf(const std::uint8_t *data, std::size_t size)
{
    return {reinterpret_cast<const char *>(data), static_cast<qsizetype>(size)};
}

/// What must hold; a target ends at once where it does not, says where, and libFuzzer keeps the
/// input.
inline void require(bool holds, int line = __builtin_LINE())
{
    if (!holds) {
        std::fprintf(stderr, "line %d does not hold\n", line);
        std::abort();
    }
}

/// Runs what may fail as the program's users are told; anything else that is thrown is a finding.
template <typename Body>
void mayFail(Body body)
{
    try {
        body();
    } catch (const RuntimeError &) {
        return;
    }
}

/// The input cut into texts at each byte 0xFF.
inline QList<QByteArray> partsOf(const std::uint8_t *data, std::size_t size)
{
    return bytesOf(data, size).split('\xFF');
}
