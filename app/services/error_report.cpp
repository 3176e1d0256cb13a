// SPDX-License-Identifier: MIT
#include "app/services/error_report.h"

#include "app/services/trace_log.h"
#include "platform/basic.h"
#include "platform/dialogs.h"

QString ErrorReport::describe(const RuntimeError &error)
{
    return "Error " + basic::str(error.number()) + ' ' + error.description();
}

bool ErrorReport::runSteps(const QString &title, const std::function<void(Step &)> &body)
{
    const Step handler(m_errMsg);
    try {
        Step step(m_errMsg);
        body(step);
        return true;
    } catch (const RuntimeError &error) {
        show(title, error);
        return false;
    }
}

void ErrorReport::show(const QString &title, const RuntimeError &error)
{
    const QString prompt = describe(error) + '\r' + m_errMsg;
    log(error);
    m_dialogs.show({.prompt = prompt, .title = title, .icon = MessageBox::Icon::Exclamation});
}

void ErrorReport::log(const RuntimeError &error)
{
    // A step's own line break would make two entries of one.
    m_log.write(describe(error) + " - " + QString(m_errMsg).replace('\r', ' '));
}
