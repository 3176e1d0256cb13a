// SPDX-License-Identifier: MIT
// The machine's configuration registry: where the simulator and the suite are found.
#pragma once

#include <QString>

#include <cstdint>
#include <memory>
#include <optional>
#include <variant>

enum class RegistryHive {
    LocalMachine, ///< HKEY_LOCAL_MACHINE, as a 32-bit program sees it
    CurrentUser,  ///< HKEY_CURRENT_USER
};

/// A registry value: text (type 1), or a 32-bit number (type 4). Other types are not read.
using RegistryData = std::variant<QString, std::uint32_t>;

/// One small interface, so that everything that looks things up can be tested without a registry.
class Registry
{
public:
    virtual ~Registry() = default;

    /// The value, or nothing when the key or the value is missing or of another type.
    /// Key and value names are blind to case; `key` has backslashes and no leading one.
    virtual std::optional<RegistryData> value(RegistryHive hive, const QString &key,
                                              const QString &name) const = 0;

    /// Creates the key with all its parents, or does nothing when it exists.
    /// Throws RuntimeError when the registry cannot be written.
    virtual void createKey(RegistryHive hive, const QString &key) = 0;

    /// Writes a value of a key, creating the key when it is missing. Throws RuntimeError.
    virtual void setValue(RegistryHive hive, const QString &key, const QString &name,
                          const RegistryData &data) = 0;

    /// The text of a value, or nothing when it is missing or not text.
    std::optional<QString> text(RegistryHive hive, const QString &key, const QString &name) const;
};

/// The registry of this machine: of Windows, or of the Wine prefix the program lives in.
std::unique_ptr<Registry> systemRegistry();
