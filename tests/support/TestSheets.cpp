// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#include "TestSheets.h"

#include <QFile>

namespace TestSheets {

QString stateRules()
{
    return QStringLiteral(R"(
SecondItem QLabel { font-size: 9px; }
#SignalSecondItem[isSecondItem="press"] { min-height: 48px; max-height: 48px; }
#SignalSecondItem[isSecondItem="press"] QLabel#m_qlUpper { font-size: 13px; }
QLabel#m_qlUpper[isUpOnline="true"] { font-weight: bold; }
#SignalSecondItem[isSecondItem="hover"] QLabel#m_qlDown { font-size: 11px; }
RootItem[isRootItem="press"] QLabel#m_qlUpper { font-size: 14px; }
#SignalSecondItem[isSecondItem="press"] { font-weight: bold; }
)");
}

QString read(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return QString();
    return QString::fromUtf8(file.readAll());
}

} // namespace TestSheets
