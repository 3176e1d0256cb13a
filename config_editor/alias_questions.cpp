// SPDX-License-Identifier: MIT
#include "config_editor/alias_questions.h"

#include "app/services/path_display.h"
#include "app/services/step.h"
#include "config_editor/panel_cfg.h"
#include "platform/dialogs.h"
#include "platform/files.h"

using namespace Qt::StringLiterals;

std::optional<QString> AliasQuestions::panelToEdit(const QString &panelFile, const QString &cfgFile,
                                                   AircraftRoot root, Step &step)
{
    const auto isWanted = [this](const QString &title, const QString &prompt) {
        return m_dialogs.show({.prompt = prompt,
                               .title = title,
                               .icon = MessageBox::Icon::Information,
                               .buttons = MessageBox::Buttons::YesNo,
                               .defaultButton = MessageBox::Answer::Yes}) ==
               MessageBox::Answer::Yes;
    };
    QString chosen = panelFile;
    step.set(u"Opening "_s + panelFile);
    if (const auto alias = panel_cfg::aliasIn(files::readAll(panelFile))) {
        chosen = panel_cfg::aliasedPath(cfgFile, root, *alias);
        m_declined =
            !isWanted(u"Aliased Panel"_s, u"This Panel is Aiased to "_s + cutForMessage(*alias) +
                                              u"\r\rDo you want to edit the aliased Panel?"_s);
        if (m_declined) {
            chosen = panel_cfg::originalPath(cfgFile);
            m_declined = !isWanted(u"Original Panel"_s,
                                   u"Do you want to edit this non-aliased Panel?\r\r"_s +
                                       panel_cfg::path(cfgFile, QString()));
        }
    }
    return m_declined ? std::nullopt : std::optional(chosen);
}
