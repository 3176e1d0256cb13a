// SPDX-License-Identifier: MIT
// Which panel is to be edited when a panel.cfg only names another one.
#pragma once

#include "config_editor/aircraft_catalogue.h"

#include <optional>

class Dialogs;
class Step;

class AliasQuestions
{
public:
    explicit AliasQuestions(Dialogs &dialogs) : m_dialogs(dialogs) {}

    /// The file to edit for an aircraft's panel.cfg: that itself, or what the user chooses when it
    /// has an alias; nothing when the user wants neither. The answer is kept until a panel with an
    /// alias is asked for: panels without one go on being suppressed by it. Throws RuntimeError:
    /// what reading the file does.
    std::optional<QString> panelToEdit(const QString &panelFile, const QString &cfgFile,
                                       AircraftRoot root, Step &step);

private:
    Dialogs &m_dialogs;
    bool m_declined = false; ///< the last answer was No
};
