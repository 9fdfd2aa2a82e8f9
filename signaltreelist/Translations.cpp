// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#include "Translations.h"

#include <QCoreApplication>
#include <QDir>
#include <QLocale>
#include <QPointer>
#include <QTranslator>

#include <memory>

namespace {

const char *const kCatalogue = "signaltreelist";

// The installed catalogue. It is a child of the application object, so it
// goes with an application that is destroyed before the library unloads.
QPointer<QTranslator> &installed()
{
    static QPointer<QTranslator> translator;
    return translator;
}

} // namespace

QString Translations::directory()
{
    return QStringLiteral(":/signaltreelist/translations");
}

QStringList Translations::shippedLanguages()
{
    const QString prefix = QLatin1String(kCatalogue) + QLatin1Char('_');
    QStringList languages;
    const QStringList files = QDir(directory()).entryList({prefix + QStringLiteral("*.qm")}, QDir::Files, QDir::Name);
    for (const QString &file : files)
        languages << file.mid(prefix.size(), file.size() - prefix.size() - 3);
    return languages;
}

bool Translations::install(const QLocale &locale)
{
    QCoreApplication *app = QCoreApplication::instance();
    if (!app)
        return false;
    auto next = std::make_unique<QTranslator>(app);
    if (!next->load(locale, QLatin1String(kCatalogue), QStringLiteral("_"), directory()))
        next.reset();
    if (QTranslator *previous = installed()) {
        QCoreApplication::removeTranslator(previous);
        delete previous;
    }
    if (!next)
        return false;
    QCoreApplication::installTranslator(next.get());
    installed() = next.release();
    return true;
}
