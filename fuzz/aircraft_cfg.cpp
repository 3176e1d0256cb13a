// SPDX-License-Identifier: MIT
// aircraft.cfg, as page 0 and as page 3 read it.
#include "app/services/cfg_content.h"
#include "fuzz/input.h"
#include "platform/code_page.h"

namespace
{

int numberOf(const std::optional<RuntimeError> &failure)
{
    return failure ? failure->number() : 0;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray bytes = bytesOf(data, size);
    const TrafficContent traffic = cfg_content::parse(bytes, Content::Traffic).first;
    const EditorContent editor = cfg_content::parse(bytes, Content::Editor).second;
    const auto [traffic2, editor2] = cfg_content::parse(bytes, Content::Both);

    // One pass gives what two give.
    require(traffic.empty == traffic2.empty && traffic.titles == traffic2.titles &&
            traffic.speed == traffic2.speed && traffic.complete == traffic2.complete &&
            numberOf(traffic.failure) == numberOf(traffic2.failure));
    require(editor.aliased == editor2.aliased && editor.panel == editor2.panel &&
            editor.displayName == editor2.displayName &&
            numberOf(editor.failure) == numberOf(editor2.failure));

    const QString text = code_page::decode(bytes);
    require(traffic.titles.size() <= TrafficContent::mostTitles);
    require(!traffic.complete || !traffic.speed.isEmpty());
    for (const QString &title : traffic.titles) {
        require(text.contains(title) && !title.contains(u'\n') && !title.contains(u'\r') &&
                !title.startsWith(u' ') && !title.endsWith(u' '));
    }
    require(text.contains(editor.panel));
    require(cfg_content::CheckName(editor.displayName) == editor.displayName);
    return 0;
}
