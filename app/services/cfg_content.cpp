// SPDX-License-Identifier: MIT
#include "app/services/cfg_content.h"

#include "platform/basic.h"
#include "platform/blind_to_case.h"
#include "platform/code_page.h"
#include "platform/line_reader.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace
{

/// What follows the first "=", trimmed; the whole line when there is none.
QString valueIn(QByteArrayView line)
{
    return code_page::decode(basic::trim(line.sliced(line.indexOf('=') + 1)));
}

/// Whether "alias" stands anywhere, blind to case. Only the places of its rarer letter are looked
/// at: every other way reads each byte more than once.
bool namesAlias(QByteArrayView bytes)
{
    return std::any_of("lL", "lL" + 2, [&](char letter) {
        for (qsizetype at = bytes.indexOf(letter, 1); at > 0; at = bytes.indexOf(letter, at + 1)) {
            if (blind_to_case::startsWith(bytes.sliced(at - 1), "alias")) {
                return true;
            }
        }
        return false;
    });
}

/// What follows the first `skipped` characters of a line, without the "=" and blanks before it.
QByteArrayView valueBehind(QByteArrayView line, qsizetype skipped)
{
    QByteArrayView value = line.sliced(qMin(skipped, line.size()));
    while (value.startsWith('=') || value.startsWith(' ')) {
        value = value.sliced(1);
    }
    return basic::trim(value);
}

QByteArrayView withoutQuotes(QByteArrayView title)
{
    if (title.startsWith('"')) {
        title = title.sliced(1);
    }
    return title.endsWith('"') ? title.chopped(1) : title;
}

/// Takes the lines that page 0 wants.
class TrafficReader
{
public:
    /// Returns whether more lines are wanted.
    bool take(QByteArrayView line)
    {
        try {
            return read(line);
        } catch (const RuntimeError &error) {
            m_content.failure = error;
            return false;
        }
    }

    TrafficContent finished(const QByteArray &bytes)
    {
        m_content.empty = bytes.isEmpty();
        if (m_titleExpected) {
            m_content.failure = RuntimeError(ErrorNumber::InputPastEnd);
        }
        return std::move(m_content);
    }

private:
    bool read(QByteArrayView line)
    {
        // The title is expected right below its header, whatever the key there is called.
        if (std::exchange(m_titleExpected, false)) {
            if (m_content.titles.size() == TrafficContent::mostTitles) {
                throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
            }
            m_content.titles += valueIn(line);
        } else if (blind_to_case::startsWith(line, "[fltsim.")) {
            m_titleExpected = true;
        }
        if (blind_to_case::startsWith(line, "cruise_speed")) {
            m_content.speed = cfg_content::speedIn(code_page::decode(line));
            m_content.complete = true;
        }
        return !m_content.complete;
    }

    TrafficContent m_content;
    bool m_titleExpected = false;
};

/// Takes the lines that page 3 wants. Views point into the file's bytes.
class EditorReader
{
public:
    void take(QByteArrayView line)
    {
        if (blind_to_case::startsWith(line, "title")) {
            m_title = valueBehind(line, 6);
        } else if (blind_to_case::startsWith(line, "panel=")) {
            m_panel = valueBehind(line, 6);
        } else if (blind_to_case::startsWith(line, "panel =")) {
            m_panel = valueBehind(line, 7);
        } else if (blind_to_case::startsWith(line, "ui_manufacturer")) {
            m_manufacturer = valueBehind(line, 16);
        } else if (blind_to_case::startsWith(line, "ui_variation")) {
            m_variation = valueBehind(line, 13);
        } else if (blind_to_case::startsWith(line, "ui_type")) {
            m_type = valueBehind(line, 8);
        }
    }

    EditorContent finished(const QByteArray &bytes) const
    {
        return {.empty = bytes.isEmpty(),
                .aliased = namesAlias(bytes),
                .panel = code_page::decode(m_panel),
                .displayName = displayName()};
    }

private:
    QString displayName() const
    {
        if (!m_title || !m_manufacturer || !m_variation || !m_type) {
            return {};
        }
        const auto shown = [](QByteArrayView value, QByteArrayView whenEmpty) {
            return value.isEmpty() ? whenEmpty : value;
        };
        QByteArray name;
        for (const QByteArrayView field :
             {shown(*m_manufacturer, "_Unknown"), shown(*m_type, "_Unknown"),
              shown(*m_variation, "Default"), shown(withoutQuotes(*m_title), "_Unknown")}) {
            name += (name.isEmpty() ? "" : " - ");
            name += field;
        }
        return cfg_content::CheckName(code_page::decode(name));
    }

    QByteArrayView m_panel;
    std::optional<QByteArrayView> m_title;
    std::optional<QByteArrayView> m_manufacturer;
    std::optional<QByteArrayView> m_variation;
    std::optional<QByteArrayView> m_type;
};

} // namespace

TrafficContent TrafficContent::parse(const QByteArray &bytes)
{
    TrafficReader reader;
    LineReader lines(bytes);
    while (!lines.atEnd() && reader.take(lines.next())) {
    }
    return reader.finished(bytes);
}

EditorContent EditorContent::parse(const QByteArray &bytes)
{
    EditorReader reader;
    LineReader lines(bytes);
    while (!lines.atEnd()) {
        reader.take(lines.next());
    }
    return reader.finished(bytes);
}

namespace cfg_content
{

std::pair<TrafficContent, EditorContent> parseBoth(const QByteArray &bytes)
{
    TrafficReader traffic;
    EditorReader editor;
    LineReader lines(bytes);
    for (bool trafficGoesOn = true; !lines.atEnd();) {
        const QByteArrayView line = lines.next();
        trafficGoesOn = trafficGoesOn && traffic.take(line);
        editor.take(line);
    }
    return {traffic.finished(bytes), editor.finished(bytes)};
}

QString speedIn(const QString &line)
{
    const qsizetype equals = basic::inStr(line, "=");
    const qsizetype comment = basic::inStr(line, "//");
    const qsizetype length = comment > 0 ? line.size() - comment + 1 : line.size();
    const QString text = basic::trim(basic::mid(line, equals + 1, length));
    return basic::wholeNumberText(std::floor(basic::val(text)));
}

QString CheckName(const QString &text)
{
    QString name = text;
    name.removeIf([](QChar character) { return character < u' ' || character > u'z'; });
    return name;
}

} // namespace cfg_content
