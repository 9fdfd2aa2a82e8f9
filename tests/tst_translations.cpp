// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

// The library's catalogues: switching the application to each shipped
// language and back changes the texts the list hands to assistive
// technology and brings them back, through a language change that runs
// reTranslateUI; the host's own texts stay as the host gave them.

#include "AccessibleRows.h"
#include "BuiltRows.h"
#include "AccessibleHost.h"
#include "DrawerControl.h"
#include "EventSender.h"
#include "RootItem.h"
#include "RowButtons.h"
#include "SecondItem.h"
#include "SignalTreeList.h"
#include "Translations.h"
#include "TreeListFrame.h"

#include <QAccessible>
#include <QCheckBox>
#include <QToolButton>
#include <QTranslator>
#include <QtTest>

namespace {

// The translatable texts the list hands out, read through the accessibility
// interfaces and the buttons' accessible names.
struct HandedTexts
{
    QMap<QString, QString> texts;

    static HandedTexts read(const AccessibleHost &host)
    {
        HandedTexts r;
        QAccessibleInterface *root = host.row(QStringLiteral("R1"));
        QAccessibleInterface *offline = host.row(QStringLiteral("R1-1"));
        QAccessibleActionInterface *actions = root->actionInterface();
        RootItem *rootRow = host.drawer(1)->rootItem();
        SecondItem *child = builtRows(host.drawer(0)).at(0);
        r.texts[QStringLiteral("list name")] = host.tree()->text(QAccessible::Name);
        r.texts[QStringLiteral("offline")] = offline->text(QAccessible::Description);
        r.texts[QStringLiteral("press action")] = actions->localizedActionName(QAccessibleActionInterface::pressAction());
        r.texts[QStringLiteral("expand action")] = actions->localizedActionName(QStringLiteral("expand"));
        r.texts[QStringLiteral("expand description")] = actions->localizedActionDescription(QStringLiteral("expand"));
        r.texts[QStringLiteral("expand box")] = rootRow->expandBox()->accessibleName();
        r.texts[QStringLiteral("root edit")] = rootRow->editButton()->accessibleName();
        r.texts[QStringLiteral("child delete")] = child->deleteButton()->accessibleName();
        r.texts[QStringLiteral("child capture")] = RowButtons::rowButton(child, 0)->accessibleName();
        r.texts[QStringLiteral("child fourth")] = RowButtons::rowButton(child, 3)->accessibleName();
        return r;
    }
};

// Counts the language changes that reach the public widget.
class CountingList : public SignalTreeList
{
public:
    using SignalTreeList::SignalTreeList;
    int retranslations = 0;
    void reTranslateUI() override
    {
        ++retranslations;
        SignalTreeList::reTranslateUI();
    }
};

// The expected text, looked up in the shipped catalogue by a translator of
// the test's own, and the English source it translates.
struct Catalogue
{
    QTranslator translator;
    QString translate(const char *source, const char *comment) const
    {
        return translator.translate("SignalTreeList", source, comment);
    }
};

} // namespace

class tst_Translations : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        EventSender::parkPointer();
    }
    void cleanup()
    {
        SignalTreeList::installTranslations(QLocale(QLocale::English));
        QCoreApplication::processEvents();
    }
    void shipsAtLeastTwoLanguages();
    void switchesToEachLanguageAndBack_data();
    void switchesToEachLanguageAndBack();
    void secondLanguageReplacesTheFirst();
    void missingLanguageFallsBackToEnglish_data();
    void missingLanguageFallsBackToEnglish();
    void hostTextsAreNotTranslated();
    void rowsBuiltLaterAreTranslated();

private:
    static std::unique_ptr<AccessibleHost> makeHost(CountingList **counting = nullptr);
};

std::unique_ptr<AccessibleHost> tst_Translations::makeHost(CountingList **counting)
{
    auto host = AccessibleHost::make();
    if (!host)
        return host;
    // A second list beside the first, of the counting kind: each language
    // change must reach every open list.
    auto *holder = new QWidget(host->window.get());
    auto *list = new CountingList(holder);
    list->initControls();
    if (counting)
        *counting = list;
    return host;
}

void tst_Translations::shipsAtLeastTwoLanguages()
{
    const QStringList languages = Translations::shippedLanguages();
    QVERIFY2(languages.contains(QStringLiteral("de")), qPrintable(languages.join(u',')));
    QVERIFY2(languages.contains(QStringLiteral("fr")), qPrintable(languages.join(u',')));
    QVERIFY(!languages.contains(QStringLiteral("en")));
}

void tst_Translations::switchesToEachLanguageAndBack_data()
{
    QTest::addColumn<QString>("language");
    for (const QString &language : Translations::shippedLanguages())
        QTest::newRow(qPrintable(language)) << language;
}

void tst_Translations::switchesToEachLanguageAndBack()
{
    QFETCH(QString, language);
    CountingList *counting = nullptr;
    auto host = makeHost(&counting);
    QVERIFY(host);
    const HandedTexts english = HandedTexts::read(*host);
    QCOMPARE(english.texts.value(QStringLiteral("offline")), QStringLiteral("offline"));
    QCOMPARE(english.texts.value(QStringLiteral("list name")), QStringLiteral("Input signals"));

    Catalogue catalogue;
    QVERIFY(catalogue.translator.load(QStringLiteral("signaltreelist_") + language, Translations::directory()));

    QVERIFY(SignalTreeList::installTranslations(QLocale(language)));
    QTRY_VERIFY(counting->retranslations > 0);
    const HandedTexts translated = HandedTexts::read(*host);
    for (auto it = english.texts.cbegin(); it != english.texts.cend(); ++it) {
        const QString now = translated.texts.value(it.key());
        QVERIFY2(!now.isEmpty() && now != it.value(),
                 qPrintable(QStringLiteral("%1 stayed \"%2\"").arg(it.key(), now)));
    }
    QCOMPARE(translated.texts.value(QStringLiteral("offline")),
             catalogue.translate("offline", "a signal that is not available"));
    QCOMPARE(translated.texts.value(QStringLiteral("list name")),
             catalogue.translate("Input signals", "accessible name of the list"));
    QCOMPARE(translated.texts.value(QStringLiteral("root edit")),
             catalogue.translate("Edit", "button of a row: edit the signal or group"));
    QCOMPARE(translated.texts.value(QStringLiteral("child fourth")),
             catalogue.translate("More", "fourth button of a signal row, whose meaning the application gives"));

    const int before = counting->retranslations;
    QVERIFY(!SignalTreeList::installTranslations(QLocale(QLocale::English)));
    QTRY_VERIFY(counting->retranslations > before);
    QCOMPARE(HandedTexts::read(*host).texts, english.texts);
}

void tst_Translations::secondLanguageReplacesTheFirst()
{
    auto host = makeHost();
    QVERIFY(host);
    QVERIFY(SignalTreeList::installTranslations(QLocale(QLocale::German)));
    QTRY_COMPARE(host->drawer(1)->rootItem()->editButton()->accessibleName(), QStringLiteral("Bearbeiten"));
    QVERIFY(SignalTreeList::installTranslations(QLocale(QLocale::French, QLocale::Canada)));
    QTRY_COMPARE(host->drawer(1)->rootItem()->editButton()->accessibleName(), QStringLiteral("Modifier"));
    QCOMPARE(host->row(QStringLiteral("R1-1"))->text(QAccessible::Description), QStringLiteral("hors ligne"));
}

void tst_Translations::missingLanguageFallsBackToEnglish_data()
{
    QTest::addColumn<QLocale>("locale");
    QTest::newRow("Japanese") << QLocale(QLocale::Japanese);
    QTest::newRow("C") << QLocale::c();
    QTest::newRow("English (UK)") << QLocale(QLocale::English, QLocale::UnitedKingdom);
}

void tst_Translations::missingLanguageFallsBackToEnglish()
{
    QFETCH(QLocale, locale);
    auto host = makeHost();
    QVERIFY(host);
    const HandedTexts english = HandedTexts::read(*host);
    QVERIFY(SignalTreeList::installTranslations(QLocale(QLocale::German)));
    QTRY_VERIFY(HandedTexts::read(*host).texts != english.texts);
    QVERIFY(!SignalTreeList::installTranslations(locale));
    QTRY_COMPARE(HandedTexts::read(*host).texts, english.texts);
}

void tst_Translations::hostTextsAreNotTranslated()
{
    auto host = makeHost();
    QVERIFY(host);
    // Host texts that happen to be the library's own English words.
    st_NodeInfoSignal node = builtRows(host->drawer(0)).at(0)->getNodeInfo();
    node.strNodeName = QStringList{QStringLiteral("Edit"), QStringLiteral("offline")};
    host->list->modifyItemData({0, 0}, node);
    QVERIFY(SignalTreeList::installTranslations(QLocale(QLocale::German)));
    QTRY_COMPARE(host->drawer(1)->rootItem()->editButton()->accessibleName(), QStringLiteral("Bearbeiten"));
    SecondItem *row = builtRows(host->drawer(0)).at(0);
    QCOMPARE(AccessibleRows::interfaceFor(ShownRows::of(row))->text(QAccessible::Name), QStringLiteral("Edit, offline"));
    QCOMPARE(row->getNodeInfo().strNodeName, (QStringList{QStringLiteral("Edit"), QStringLiteral("offline")}));
    QCOMPARE(host->row(QStringLiteral("R1"))->text(QAccessible::Name), QStringLiteral("R1"));
}

void tst_Translations::rowsBuiltLaterAreTranslated()
{
    auto host = makeHost();
    QVERIFY(host);
    QVERIFY(SignalTreeList::installTranslations(QLocale(QLocale::French)));
    QCoreApplication::processEvents();
    st_NodeInfoSignal root;
    root.strNodeName = QStringList{QStringLiteral("late")};
    QList<st_NodeInfoSignal> children{root};
    host->list->addRootItem(root, children);
    DrawerControl *late = host->frame()->drawers().last();
    QCOMPARE(late->rootItem()->editButton()->accessibleName(), QStringLiteral("Modifier"));
    QCOMPARE(builtRows(late).at(0)->deleteButton()->accessibleName(), QStringLiteral("Supprimer"));
}

QTEST_MAIN(tst_Translations)
#include "tst_translations.moc"
