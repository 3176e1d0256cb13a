// SPDX-License-Identifier: MIT
#include "app/services/cfg_content.h"

#include "platform/basic.h"
#include "platform/blind_to_case.h"
#include "platform/code_page.h"
#include "platform/line_reader.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <string_view>

using namespace Qt::StringLiterals;

using blind_to_case::startsWith;

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
    constexpr std::string_view letters = "lL";
    return std::any_of(letters.begin(), letters.end(), [&](char letter) {
        for (qsizetype at = bytes.indexOf(letter, 1); at > 0; at = bytes.indexOf(letter, at + 1)) {
            if (startsWith(bytes.sliced(at - 1), "alias")) {
                return true;
            }
        }
        return false;
    });
}

using Value = std::optional<QByteArrayView>;

/// Takes what follows a key and the character behind it, without the "=" and blanks before it.
void takeValue(QByteArrayView line, QByteArrayView key, Value &value)
{
    if (!startsWith(line, key)) {
        return;
    }
    QByteArrayView text = line.sliced(qMin(key.size() + 1, line.size()));
    while (text.startsWith('=') || text.startsWith(' ')) {
        text = text.sliced(1);
    }
    value = basic::trim(text);
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
        } else if (startsWith(line, "[fltsim.")) {
            m_titleExpected = true;
        }
        if (startsWith(line, "cruise_speed")) {
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
        // Nearly every line is of no interest, which its first letter tells.
        switch (line.isEmpty() ? '\0' : line.front()) {
        case 't':
        case 'T':
            takeValue(line, "title", m_title);
            break;
        case 'p':
        case 'P':
            if (startsWith(line, "panel=") || startsWith(line, "panel =")) {
                takeValue(line, "panel", m_panel);
            }
            break;
        case 'u':
        case 'U':
            takeValue(line, "ui_manufacturer", m_manufacturer);
            takeValue(line, "ui_variation", m_variation);
            takeValue(line, "ui_type", m_type);
            break;
        default:
            break;
        }
    }

    EditorContent finished(const QByteArray &bytes) const
    {
        return {.aliased = namesAlias(bytes),
                .panel = code_page::decode(m_panel.value_or(QByteArrayView())),
                .displayName = displayName(),
                .failure = {},
                .lastLine = {}};
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

    Value m_panel;
    Value m_title;
    Value m_manufacturer;
    Value m_variation;
    Value m_type;
};

} // namespace

namespace cfg_content
{

std::pair<TrafficContent, EditorContent> parse(const QByteArray &bytes, Content wanted)
{
    TrafficReader traffic;
    EditorReader editor;
    bool trafficGoesOn = wanted != Content::Editor;
    const bool editorGoesOn = wanted != Content::Traffic;
    for (LineReader lines(bytes); !lines.atEnd() && (trafficGoesOn || editorGoesOn);) {
        const QByteArrayView line = lines.next();
        trafficGoesOn = trafficGoesOn && traffic.take(line);
        if (editorGoesOn) {
            editor.take(line);
        }
    }
    return {traffic.finished(bytes), editorGoesOn ? editor.finished(bytes) : EditorContent()};
}

QString speedIn(const QString &line)
{
    const qsizetype equals = line.indexOf(u'=');
    const qsizetype comment = line.indexOf("//"_L1);
    const qsizetype length = comment >= 0 ? line.size() - comment : line.size();
    const QString text = basic::trim(line.mid(equals + 1, length));
    return basic::wholeNumberText(std::floor(basic::val(text)));
}

QString CheckName(const QString &text)
{
    QString name = text;
    name.removeIf([](QChar character) { return character < u' ' || character > u'z'; });
    return name;
}

} // namespace cfg_content
