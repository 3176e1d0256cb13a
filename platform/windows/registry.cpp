// SPDX-License-Identifier: MIT
// The registry of Windows.
#include "platform/registry.h"

#include "platform/runtime_error.h"
#include "platform/windows/handle.h"

#include <string>

using namespace Qt::StringLiterals;

namespace
{

/// The simulators are 32-bit programs and register where those do.
REGSAM viewOf(RegistryHive hive)
{
    return hive == RegistryHive::LocalMachine ? KEY_WOW64_32KEY : 0;
}

HKEY rootOf(RegistryHive hive)
{
    return hive == RegistryHive::LocalMachine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER;
}

class Key
{
public:
    Key() = default;

    ~Key()
    {
        if (m_key != nullptr) {
            ::RegCloseKey(m_key);
        }
    }

    Key(const Key &) = delete;
    Key &operator=(const Key &) = delete;

    HKEY get() const { return m_key; }

    HKEY *slot() { return &m_key; }

private:
    HKEY m_key = nullptr;
};

void require(LSTATUS status)
{
    if (status != ERROR_SUCCESS) {
        throw RuntimeError(files::errorNumber(static_cast<DWORD>(status)));
    }
}

void create(RegistryHive hive, const QString &key, Key &created)
{
    require(::RegCreateKeyExW(rootOf(hive), key.toStdWString().c_str(), 0, nullptr, 0,
                              KEY_SET_VALUE | viewOf(hive), nullptr, created.slot(), nullptr));
}

class WindowsRegistry : public Registry
{
public:
    std::optional<RegistryData> value(RegistryHive hive, const QString &key,
                                      const QString &name) const override
    {
        Key opened;
        if (::RegOpenKeyExW(rootOf(hive), key.toStdWString().c_str(), 0,
                            KEY_QUERY_VALUE | viewOf(hive), opened.slot()) != ERROR_SUCCESS) {
            return std::nullopt;
        }
        const std::wstring wide = name.toStdWString();
        constexpr DWORD wanted = RRF_RT_REG_SZ | RRF_RT_REG_DWORD; // the first expands, too
        DWORD type = 0;
        DWORD size = 0; // in bytes
        // Grows between the two calls only when somebody writes it; then it is asked again.
        std::wstring buffer;
        LSTATUS status =
            ::RegGetValueW(opened.get(), nullptr, wide.c_str(), wanted, &type, nullptr, &size);
        while (status == ERROR_SUCCESS || status == ERROR_MORE_DATA) {
            buffer.resize(size / sizeof(wchar_t) + 1);
            size = static_cast<DWORD>(buffer.size() * sizeof(wchar_t));
            status = ::RegGetValueW(opened.get(), nullptr, wide.c_str(), wanted, &type,
                                    buffer.data(), &size);
            if (status == ERROR_SUCCESS) {
                break;
            }
        }
        if (status != ERROR_SUCCESS) {
            return std::nullopt;
        }
        if (type == REG_DWORD) {
            std::uint32_t number = 0;
            std::memcpy(&number, buffer.data(), sizeof number);
            return number;
        }
        return QString::fromWCharArray(buffer.c_str()); // to the first NUL
    }

    void createKey(RegistryHive hive, const QString &key) override
    {
        Key created;
        create(hive, key, created);
    }

    void setValue(RegistryHive hive, const QString &key, const QString &name,
                  const RegistryData &data) override
    {
        Key created;
        create(hive, key, created);
        const std::wstring wide = name.toStdWString();
        const auto set = [&](DWORD type, const void *bytes, std::size_t size) {
            require(::RegSetValueExW(created.get(), wide.c_str(), 0, type,
                                     static_cast<const BYTE *>(bytes), static_cast<DWORD>(size)));
        };
        if (const auto *const number = std::get_if<std::uint32_t>(&data)) {
            set(REG_DWORD, number, sizeof *number);
        } else {
            const std::wstring text = std::get<QString>(data).toStdWString();
            set(REG_SZ, text.c_str(), (text.size() + 1) * sizeof(wchar_t));
        }
    }
};

} // namespace

std::unique_ptr<Registry> systemRegistry()
{
    return std::make_unique<WindowsRegistry>();
}
