// SPDX-License-Identifier: MIT
#include "platform/registry.h"

std::optional<QString> Registry::text(RegistryHive hive, const QString &key,
                                      const QString &name) const
{
    const std::optional<RegistryData> data = value(hive, key, name);
    const QString *text = data ? std::get_if<QString>(&*data) : nullptr;
    return text != nullptr ? std::optional(*text) : std::nullopt;
}
