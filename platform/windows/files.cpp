// SPDX-License-Identifier: MIT
#include "platform/files.h"

#include "platform/list_order.h"
#include "platform/paths.h"
#include "platform/windows/handle.h"

#include <QRegularExpression>
#include <QThread>

#include <optional>

using namespace Qt::StringLiterals;

namespace files
{

namespace
{

/// Whether the file ends within a line. One whose last byte cannot be read is taken to: two line
/// ends do less harm than two entries glued together.
bool endsWithinLine(const std::wstring &name, qint64 length)
{
    if (length == 0) {
        return false;
    }
    const Handle file = tryOpen(name, GENERIC_READ, OPEN_EXISTING);
    LARGE_INTEGER last = {};
    last.QuadPart = length - 1;
    char byte = '\0';
    DWORD count = 0;
    if (!file.isOpen() || ::SetFilePointerEx(file.get(), last, nullptr, FILE_BEGIN) == 0 ||
        ::ReadFile(file.get(), &byte, 1, &count, nullptr) == 0 || count != 1) {
        return true;
    }
    return byte != '\n' && byte != '\r';
}

bool setLength(const Handle &file, qint64 length)
{
    LARGE_INTEGER end = {};
    end.QuadPart = length;
    return ::SetFilePointerEx(file.get(), end, nullptr, FILE_BEGIN) != 0 &&
           ::SetEndOfFile(file.get()) != 0;
}

/// Appends to a file that was `before` bytes long. When that fails half way its part is cut off
/// again, unless somebody else has appended meanwhile: theirs is not ours to cut.
void append(const std::wstring &name, const Handle &file, qint64 before, QByteArrayView bytes)
{
    const qsizetype all = bytes.size();
    try {
        writeBytes(file, bytes);
    } catch (const RuntimeError &) {
        const Handle whole = tryOpen(name, GENERIC_WRITE, OPEN_EXISTING);
        LARGE_INTEGER size = {};
        if (whole.isOpen() && ::GetFileSizeEx(whole.get(), &size) != 0 &&
            size.QuadPart == before + all - bytes.size()) {
            // Where even this fails half an entry stays; what made it so is the error to report.
            setLength(whole, before);
        }
        throw;
    }
}

void flush(const Handle &file)
{
    if (::FlushFileBuffers(file.get()) == 0) {
        throwLastError();
    }
}

/// Where a new content is written until it is complete. The process's number keeps two programs
/// apart, and tells what a program that was killed has left.
QString freshName(const QString &host, DWORD process = ::GetCurrentProcessId())
{
    return host + u'.' + QString::number(process) + u".new"_s;
}

bool isRunning(DWORD process)
{
    const HANDLE handle = ::OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, process);
    const bool unknown = handle == nullptr && ::GetLastError() == ERROR_INVALID_PARAMETER;
    DWORD code = STILL_ACTIVE;
    if (handle != nullptr) {
        ::GetExitCodeProcess(handle, &code);
        ::CloseHandle(handle);
    }
    return !unknown && code == STILL_ACTIVE;
}

template <typename Visit>
DWORD forEachEntry(const QString &hostPattern, Visit visit)
{
    WIN32_FIND_DATAW entry = {};
    const HANDLE search =
        ::FindFirstFileExW(wideName(hostPattern).c_str(), FindExInfoBasic, &entry,
                           FindExSearchNameMatch, nullptr, FIND_FIRST_EX_LARGE_FETCH);
    if (search == INVALID_HANDLE_VALUE) {
        return ::GetLastError();
    }
    do {
        visit(entry);
    } while (::FindNextFileW(search, &entry) != 0);
    const DWORD code = ::GetLastError();
    ::FindClose(search);
    return code == ERROR_NO_MORE_FILES ? ERROR_SUCCESS : code;
}

/// Removes what programs that were killed left beside a file.
void removeLeftovers(const QString &host)
{
    const QString folder = host.first(host.lastIndexOf(u'\\') + 1);
    forEachEntry(host + u".*.new"_s, [&](const WIN32_FIND_DATAW &entry) {
        const QString name = QString::fromWCharArray(entry.cFileName);
        const DWORD process = name.chopped(4).section(u'.', -1).toUInt();
        if (process > 0 && !isRunning(process) &&
            (folder + name).compare(freshName(host, process), Qt::CaseInsensitive) == 0) {
            ::DeleteFileW(wideName(folder + name).c_str());
        }
    });
}

DWORD attributesOf(const std::wstring &name)
{
    return ::GetFileAttributesW(name.c_str());
}

bool replaceFile(const std::wstring &by, const std::wstring &name)
{
    if (const DWORD old = attributesOf(name); old != INVALID_FILE_ATTRIBUTES) {
        ::SetFileAttributesW(by.c_str(), old);
    }
    // The first keeps what else the old file has beside its content; it needs an old file.
    return ::ReplaceFileW(name.c_str(), by.c_str(), nullptr, 0, nullptr, nullptr) != 0 ||
           (::GetLastError() == ERROR_FILE_NOT_FOUND &&
            ::MoveFileExW(by.c_str(), name.c_str(), MOVEFILE_WRITE_THROUGH) != 0);
}

/// Writes a file beside another one and lets it take the other's place: the old content stands
/// until the new one is complete. Returns false where the folder takes no new files.
bool replaceByNew(const QString &host, QByteArrayView bytes)
{
    removeLeftovers(host);
    const std::wstring fresh = wideName(freshName(host));
    Handle file = tryOpen(fresh, GENERIC_WRITE, CREATE_ALWAYS);
    if (!file.isOpen()) {
        const DWORD code = ::GetLastError();
        if (code == ERROR_ACCESS_DENIED) {
            return false;
        }
        throw RuntimeError(errorNumber(code));
    }
    try {
        writeBytes(file, bytes);
        flush(file);
        file.reset();
        if (!replaceFile(fresh, wideName(host))) {
            throwLastError();
        }
    } catch (const RuntimeError &) {
        file.reset();
        ::DeleteFileW(fresh.c_str());
        throw;
    }
    return true;
}

/// Writes a file whose folder takes no new ones. What makes it longer comes first: where there is
/// no room for that the old content stands.
void writeInPlace(const std::wstring &name, const Handle &file, QByteArrayView bytes)
{
    const qint64 before = lengthOf(file);
    QByteArrayView front = bytes.first(qMin<qint64>(before, bytes.size()));
    ::SetFilePointer(file.get(), 0, nullptr, FILE_END);
    append(name, file, before, bytes.sliced(front.size()));
    ::SetFilePointer(file.get(), 0, nullptr, FILE_BEGIN);
    writeBytes(file, front);
    if (!setLength(file, bytes.size())) {
        throwLastError();
    }
    flush(file);
}

/// Where a link leads; the path itself of anything else.
QString finalPath(const QString &host)
{
    const Handle file = tryOpen(wideName(host), 0, OPEN_EXISTING);
    std::wstring buffer(32'768, L'\0');
    const DWORD size =
        file.isOpen()
            ? ::GetFinalPathNameByHandleW(file.get(), buffer.data(),
                                          static_cast<DWORD>(buffer.size()), FILE_NAME_NORMALIZED)
            : 0;
    const QString path = QString::fromWCharArray(buffer.data(), static_cast<qsizetype>(size));
    return path.startsWith(R"(\\?\UNC\)"_L1) ? u'\\' + path.sliced(7)
           : path.startsWith(R"(\\?\)"_L1)   ? path.sliced(4)
                                             : host;
}

bool isLink(const std::wstring &name)
{
    const DWORD attributes = attributesOf(name);
    return attributes != INVALID_FILE_ATTRIBUTES &&
           (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
}

/// The names of the wanted entries of a folder that Windows can spell, sorted blind to case.
QStringList namesIn(const QString &path, bool (*isWanted)(DWORD attributes))
{
    requireFolder(path);
    QStringList names;
    const DWORD code =
        forEachEntry(paths::join(paths::toHost(path), u"*"_s), [&](const WIN32_FIND_DATAW &entry) {
            const QString name = QString::fromWCharArray(entry.cFileName);
            if (isWanted(entry.dwFileAttributes) && name != "."_L1 && name != ".."_L1 &&
                paths::isValidName(name)) {
                names += name;
            }
        });
    if (code != ERROR_SUCCESS && code != ERROR_FILE_NOT_FOUND) {
        throw RuntimeError(errorNumber(code)); // a folder that breaks off is not one that ends
    }
    list_order::sort(names);
    return names;
}

/// What tells a file from every other one on this machine.
std::optional<BY_HANDLE_FILE_INFORMATION> identityOf(const QString &path)
{
    try {
        // Folders open with this flag alone.
        const Handle file = tryOpen(hostName(path), 0, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS);
        BY_HANDLE_FILE_INFORMATION info = {};
        return file.isOpen() && ::GetFileInformationByHandle(file.get(), &info) != 0
                   ? std::optional(info)
                   : std::nullopt;
    } catch (const RuntimeError &) {
        return std::nullopt;
    }
}

DWORD attributesOrNone(const QString &path)
{
    try {
        return attributesOf(hostName(path));
    } catch (const RuntimeError &) {
        ::SetLastError(ERROR_INVALID_NAME);
        return INVALID_FILE_ATTRIBUTES;
    }
}

} // namespace

QByteArray readAll(const QString &path)
{
    QByteArray bytes;
    readInto(openFile(hostName(path), GENERIC_READ), bytes);
    return bytes;
}

qint64 length(const QString &path)
{
    return lengthOf(openFile(hostName(path), GENERIC_READ));
}

qint64 openForAppend(const QString &path, Links links)
{
    const std::wstring name = hostName(path);
    if (links == Links::Refuse && isLink(name)) {
        throw RuntimeError(ErrorNumber::PathNotFound);
    }
    return lengthOf(openFile(name, FILE_APPEND_DATA | FILE_READ_ATTRIBUTES, OPEN_ALWAYS));
}

void appendLines(const QString &path, const QByteArray &bytes)
{
    const std::wstring name = hostName(path);
    const Handle file = openFile(name, FILE_APPEND_DATA | FILE_READ_ATTRIBUTES, OPEN_ALWAYS);
    const qint64 before = lengthOf(file);
    append(name, file, before, endsWithinLine(name, before) ? "\r\n" + bytes : bytes);
}

struct Lock::File {
    explicit File(Handle &&opened) : handle(std::move(opened)) {}

    Handle handle;
};

Lock::Lock(const QString &path)
{
    constexpr int longestWait = 5000; // milliseconds; the other copy may have been stopped
    constexpr int pause = 10;
    try {
        m_file = std::make_unique<File>(openFile(hostName(path), GENERIC_WRITE));
    } catch (const RuntimeError &) {
        return; // whoever writes to it says why
    }
    OVERLAPPED place = {}; // a byte far behind any end: other programs are to read and write
    place.OffsetHigh = 0x4000'0000;
    for (int waited = 0;
         waited < longestWait &&
         ::LockFileEx(m_file->handle.get(), LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0,
                      1, 0, &place) == 0 &&
         (::GetLastError() == ERROR_LOCK_VIOLATION || ::GetLastError() == ERROR_IO_PENDING);
         waited += pause) {
        QThread::msleep(pause);
    }
}

Lock::~Lock() = default;

void sync(const QString &path)
{
    flush(openFile(hostName(path), GENERIC_WRITE));
}

void writeAll(const QString &path, const QByteArray &bytes)
{
    const QString named = paths::toHost(path);
    const QString host = isLink(wideName(named)) ? finalPath(named) : named;
    const std::wstring name = wideName(host);
    // Opening for writing first refuses what a replacement would pass over: a read-only file.
    Handle old = tryOpen(name, GENERIC_WRITE, OPEN_EXISTING);
    const DWORD code = old.isOpen() ? ERROR_SUCCESS : ::GetLastError();
    if (code != ERROR_SUCCESS && code != ERROR_FILE_NOT_FOUND) {
        throw RuntimeError(errorNumber(code));
    }
    if (old.isOpen()) {
        requireFile(old);
        old.reset();
    }
    if (replaceByNew(host, bytes)) {
        return;
    }
    if (code != ERROR_SUCCESS) {
        throw RuntimeError(ErrorNumber::PathFileAccess);
    }
    writeInPlace(name, openFile(name, GENERIC_WRITE), bytes);
}

void copy(const QString &from, const QString &to)
{
    const QByteArray bytes = readAll(from);
    const QString host = paths::toHost(to);
    const std::wstring name = wideName(host);
    if (isLink(name)) {
        ::DeleteFileW(name.c_str()); // the link, not what it leads to
    } else if (attributesOf(name) != INVALID_FILE_ATTRIBUTES) {
        openFile(name, GENERIC_WRITE); // a read-only file is not silently replaced
    }
    if (!replaceByNew(host, bytes)) {
        throw RuntimeError(ErrorNumber::PathFileAccess);
    }
}

void remove(const QString &path)
{
    if (::DeleteFileW(hostName(path).c_str()) == 0) {
        throwLastError();
    }
}

bool isSame(const QString &path, const QString &other)
{
    const auto one = identityOf(path);
    const auto two = identityOf(other);
    return one && two && one->dwVolumeSerialNumber == two->dwVolumeSerialNumber &&
           one->nFileIndexHigh == two->nFileIndexHigh && one->nFileIndexLow == two->nFileIndexLow;
}

bool exists(const QString &path)
{
    if (attributesOrNone(path) != INVALID_FILE_ATTRIBUTES) {
        return true;
    }
    const DWORD code = ::GetLastError();
    return code == ERROR_ACCESS_DENIED || code == ERROR_SHARING_VIOLATION;
}

bool isFolder(const QString &path)
{
    const DWORD attributes = attributesOrNone(path);
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

bool isFile(const QString &path)
{
    const DWORD attributes = attributesOrNone(path);
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

void requireFolder(const QString &path)
{
    const Handle folder =
        tryOpen(hostName(path), FILE_LIST_DIRECTORY, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS);
    BY_HANDLE_FILE_INFORMATION info = {};
    if (!folder.isOpen()) {
        const ErrorNumber number = errorNumber(::GetLastError());
        throw RuntimeError(number == ErrorNumber::FileNotFound ? ErrorNumber::PathNotFound
                                                               : number);
    }
    if (::GetFileInformationByHandle(folder.get(), &info) != 0 &&
        (info.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0) {
        throw RuntimeError(ErrorNumber::PathNotFound);
    }
}

QStringList subFolders(const QString &path)
{
    return namesIn(path, [](DWORD attributes) {
        return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0 &&
               (attributes & FILE_ATTRIBUTE_HIDDEN) == 0;
    });
}

QStringList filesMatching(const QString &path, const QString &pattern)
{
    return namesIn(path,
                   [](DWORD attributes) { return (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0; })
        .filter(QRegularExpression::fromWildcard(pattern, Qt::CaseInsensitive));
}

} // namespace files
