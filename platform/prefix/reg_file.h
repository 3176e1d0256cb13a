// SPDX-License-Identifier: MIT
// Wine's text format of the registry: system.reg and user.reg.
#pragma once

#include "platform/registry.h"

#include <QByteArray>

#include <utility>

/// A registry file in memory. What is not changed keeps every byte: comments, order, line ends,
/// times, values of kinds this program does not know.
class RegFile
{
public:
    /// The bytes of a file; of a missing one, none.
    explicit RegFile(QByteArray bytes) : m_bytes(std::move(bytes)) {}

    const QByteArray &bytes() const { return m_bytes; }

    /// The value, or nothing when it is missing or neither text nor a 32-bit number. Names are
    /// blind to case.
    std::optional<RegistryData> value(const QString &key, const QString &name) const;

    /// Adds the key at the end, stamped with `time` (seconds since 1970), unless it is there.
    void createKey(const QString &key, qint64 time);

    /// Replaces the value, or adds it behind the key's last one, creating the key when needed.
    void setValue(const QString &key, const QString &name, const RegistryData &data, qint64 time);

private:
    /// Offsets of a run of whole lines: [start, end).
    struct Range {
        qsizetype start = 0;
        qsizetype end = 0;
    };

    std::optional<Range> findKey(const QString &key) const; ///< its lines behind the header
    std::optional<Range> findValue(Range key, const QString &name) const;
    qsizetype lineEnd(qsizetype start) const;   ///< where the next line starts
    QByteArrayView line(qsizetype start) const; ///< without its end
    QByteArray newLine() const;                 ///< as the file's own lines end

    QByteArray m_bytes;
};
