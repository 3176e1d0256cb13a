// SPDX-License-Identifier: MIT
#include "app/services/error_report.h"

#include "app/services/trace_log.h"
#include "platform/basic.h"
#include "platform/dialogs.h"

using namespace Qt::StringLiterals;

QString ErrorReport::describe(const RuntimeError &error)
{
    return u"Error "_s + basic::str(error.number()) + u' ' + error.description();
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
    const QString prompt = describe(error) + u'\r' + m_errMsg;
    log(error);
    m_dialogs.show({.prompt = prompt, .title = title, .icon = MessageBox::Icon::Exclamation});
}

void ErrorReport::log(const RuntimeError &error)
{
    // A step's own line break would make two entries of one.
    m_log.write(describe(error) + u" - "_s + QString(m_errMsg).replace(u'\r', u' '));
}
