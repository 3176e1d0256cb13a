// SPDX-License-Identifier: MIT
// A list box's own order: ascending, blind to case, ties by plain code order.
#pragma once

#include <QStringList>

namespace list_order
{

void sort(QStringList &texts);

/// Where a text belongs in a sorted list, behind its equals.
qsizetype position(const QStringList &texts, const QString &text);

} // namespace list_order
