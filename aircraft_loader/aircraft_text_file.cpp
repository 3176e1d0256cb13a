// SPDX-License-Identifier: MIT
#include "aircraft_loader/aircraft_text_file.h"

#include "platform/basic.h"
#include "platform/blind_to_case.h"
#include "platform/code_page.h"
#include "platform/line_reader.h"

using namespace Qt::StringLiterals;

namespace
{

constexpr qsizetype shortestAircraftLine = 11;

bool isComment(QByteArrayView line)
{
    return line.startsWith(';') || line.startsWith("//");
}

std::int16_t numberIn(const QString &line)
{
    const qsizetype hash = basic::inStr(line, u"#"_s);
    const qsizetype comma = basic::inStr(line, u","_s);
    return basic::toInteger16(basic::mid(line, hash + 1, comma - hash - 1));
}

} // namespace

void AircraftTextFile::read(const QByteArray &bytes)
{
    *this = {};
    LineReader reader(bytes);
    while (!reader.atEnd()) {
        const QByteArrayView raw = reader.next();
        if (isComment(raw)) {
            continue;
        }
        const QString line = code_page::decode(raw);
        lines += line;
        if (line.size() >= shortestAircraftLine) {
            Number = numberIn(line);
            AircraftCount = basic::add16(AircraftCount, 1);
        }
    }
}

namespace aircraft_text_file
{

QString titleIn(const QString &line)
{
    const qsizetype quote = basic::inStr(line, u"\""_s);
    return basic::mid(line, quote + 1, line.size() - quote - 1);
}

QString captionName(const QString &path)
{
    return path.sliced(basic::inStr(blind_to_case::lower(path), u"\\aircraft"_s));
}

QString folderPart(const QString &path)
{
    return path.first(basic::inStr(blind_to_case::lower(path), u"\\aircraft"_s));
}

} // namespace aircraft_text_file
