// SPDX-License-Identifier: MIT
#include "app/services/error_report.h"

#include "platform/basic.h"

QString ErrorReport::describe(const RuntimeError &error)
{
    return "Error " + basic::str(error.number()) + ' ' + error.description();
}

void ErrorReport::show(const QString &title, const RuntimeError &error)
{
    const QString prompt = describe(error) + '\r' + m_state.ErrMsg;
    log(error);
    m_dialogs.show({.prompt = prompt, .title = title, .icon = MessageBox::Icon::Exclamation});
}

void ErrorReport::log(const RuntimeError &error)
{
    try {
        // A step's own line break would make two entries of one.
        m_log.write(describe(error) + " - " + QString(m_state.ErrMsg).replace('\r', ' '));
    } catch (const RuntimeError &) {
        // The log is what cannot be written: the box that follows is the only report left.
        m_state.TraceMsg.clear();
    }
}
