// SPDX-License-Identifier: MIT
// What the program asks and tells the user in boxes of their own.
#pragma once

#include <QString>

/// A message box. All texts are plain: "<b>" and "&" show as they are; a carriage return is a
/// line break.
struct MessageBox {
    enum class Icon { None, Information, Exclamation, Critical };
    enum class Buttons { Ok, YesNo };
    enum class Answer { Ok, Yes, No };

    QString prompt;
    QString title;
    Icon icon = Icon::None;
    Buttons buttons = Buttons::Ok;
    Answer defaultButton = Answer::Ok; ///< with YesNo: what Enter presses
};

/// A dialog that chooses one existing file.
struct OpenFileDialog {
    QString filter;      ///< description, "|", pattern, "|": "Text Files (*.txt)|*.txt|"
    QString startFolder; ///< Windows path; empty: the current directory
};

/// The door to the user, which a test replaces.
class Dialogs
{
public:
    virtual ~Dialogs() = default;

    /// Shows the box and waits. Closing it with Escape answers No where No is a choice.
    virtual MessageBox::Answer show(const MessageBox &box) = 0;

    /// The Windows path chosen; empty when the user cancelled.
    virtual QString openFile(const OpenFileDialog &dialog) = 0;
};
