// SPDX-License-Identifier: MIT
// Drives of one's own, for those who must not touch the machine's.
#pragma once

#include <QMap>
#include <QString>

namespace paths
{

/// From now on these are the drives: folders of the host by letter, in lower case. None gives the
/// machine's own back. Tests alone call it.
void setDrives(const QMap<QChar, QString> &folders);

} // namespace paths
