// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#include "NodeInfoTrace.h"
#include "st_NodeInfoSignal.h"

#include <QMap>
#include <QtTest>

#include <cstddef>
#include <limits>
#include <type_traits>

// The record crosses the library's binary interface: field types and their
// order are fixed.
static_assert(std::is_same<decltype(st_NodeInfoSignal::strNodeName), QStringList>::value, "strNodeName");
static_assert(std::is_same<decltype(st_NodeInfoSignal::strSourceName), QString>::value, "strSourceName");
static_assert(std::is_same<decltype(st_NodeInfoSignal::nNodeData1), qint64>::value, "nNodeData1");
static_assert(std::is_same<decltype(st_NodeInfoSignal::isOnline), bool>::value, "isOnline");
static_assert(std::is_same<decltype(st_NodeInfoSignal::showOpBtn), QList<bool>>::value, "showOpBtn");
static_assert(std::is_same<decltype(st_NodeInfoSignal::iType), int>::value, "iType");
static_assert(std::is_same<decltype(st_NodeInfoSignal::nNodeData2), qint64>::value, "nNodeData2");
static_assert(std::is_same<decltype(st_NodeInfoSignal::iSignalGroupNo), int>::value, "iSignalGroupNo");
static_assert(std::is_same<decltype(st_NodeInfoSignal::eInputSourceType), int>::value, "eInputSourceType");
static_assert(std::is_same<decltype(st_NodeInfoSignal::iInputSourceNo), int>::value, "iInputSourceNo");
static_assert(sizeof(qint64) == 8, "64-bit host values");

static_assert(std::is_standard_layout<st_NodeInfoSignal>::value,
              "offsetof below needs a standard-layout record");
static_assert(offsetof(st_NodeInfoSignal, strNodeName) == 0, "first field first");
static_assert(offsetof(st_NodeInfoSignal, strNodeName) < offsetof(st_NodeInfoSignal, strSourceName), "order 1-2");
static_assert(offsetof(st_NodeInfoSignal, strSourceName) < offsetof(st_NodeInfoSignal, nNodeData1), "order 2-3");
static_assert(offsetof(st_NodeInfoSignal, nNodeData1) < offsetof(st_NodeInfoSignal, isOnline), "order 3-4");
static_assert(offsetof(st_NodeInfoSignal, isOnline) < offsetof(st_NodeInfoSignal, showOpBtn), "order 4-5");
static_assert(offsetof(st_NodeInfoSignal, showOpBtn) < offsetof(st_NodeInfoSignal, iType), "order 5-6");
static_assert(offsetof(st_NodeInfoSignal, iType) < offsetof(st_NodeInfoSignal, nNodeData2), "order 6-7");
static_assert(offsetof(st_NodeInfoSignal, nNodeData2) < offsetof(st_NodeInfoSignal, iSignalGroupNo), "order 7-8");
static_assert(offsetof(st_NodeInfoSignal, iSignalGroupNo) < offsetof(st_NodeInfoSignal, eInputSourceType), "order 8-9");
static_assert(offsetof(st_NodeInfoSignal, eInputSourceType) < offsetof(st_NodeInfoSignal, iInputSourceNo), "order 9-10");

namespace {

// The record has no equality operator; tests compare field by field.
bool sameRecord(const st_NodeInfoSignal &a, const st_NodeInfoSignal &b)
{
    return a.strNodeName == b.strNodeName && a.strSourceName == b.strSourceName
        && a.strSourceName.isNull() == b.strSourceName.isNull()
        && a.nNodeData1 == b.nNodeData1 && a.isOnline == b.isOnline
        && a.showOpBtn == b.showOpBtn && a.iType == b.iType && a.nNodeData2 == b.nNodeData2
        && a.iSignalGroupNo == b.iSignalGroupNo && a.eInputSourceType == b.eInputSourceType
        && a.iInputSourceNo == b.iInputSourceNo;
}

st_NodeInfoSignal fullRecord()
{
    st_NodeInfoSignal node;
    node.strNodeName = QStringList{ QStringLiteral("Upper line"), QStringLiteral("Lower line") };
    node.strSourceName = QStringLiteral("Source 7");
    node.nNodeData1 = Q_INT64_C(0x0123456789ABCDEF);
    node.isOnline = true;
    node.showOpBtn = QList<bool>{ true, false, true, false };
    node.iType = 11;
    node.nNodeData2 = Q_INT64_C(-98765432109876);
    node.iSignalGroupNo = 42;
    node.eInputSourceType = 3;
    node.iInputSourceNo = 17;
    return node;
}

void checkFullRecord(const st_NodeInfoSignal &node)
{
    QCOMPARE(node.strNodeName, (QStringList{ QStringLiteral("Upper line"), QStringLiteral("Lower line") }));
    QCOMPARE(node.strSourceName, QStringLiteral("Source 7"));
    QCOMPARE(node.nNodeData1, Q_INT64_C(0x0123456789ABCDEF));
    QCOMPARE(node.isOnline, true);
    QCOMPARE(node.showOpBtn, (QList<bool>{ true, false, true, false }));
    QCOMPARE(node.iType, 11);
    QCOMPARE(node.nNodeData2, Q_INT64_C(-98765432109876));
    QCOMPARE(node.iSignalGroupNo, 42);
    QCOMPARE(node.eInputSourceType, 3);
    QCOMPARE(node.iInputSourceNo, 17);
}

// Every field of a default-constructed record.
void checkDefaultRecord(const st_NodeInfoSignal &node)
{
    QVERIFY(node.strNodeName.isEmpty());
    QVERIFY(node.strSourceName.isEmpty());
    QVERIFY2(!node.strSourceName.isNull(), "the source name is set from \"\", so it is not null");
    QCOMPARE(node.nNodeData1, qint64(0));
    QCOMPARE(node.isOnline, false);
    QVERIFY(node.showOpBtn.isEmpty());
    QCOMPARE(node.iType, 0);
    QCOMPARE(node.nNodeData2, qint64(0));
    QCOMPARE(node.iSignalGroupNo, 0);
    QCOMPARE(node.eInputSourceType, 0);
    QCOMPARE(node.iInputSourceNo, 0);
}

// A default record with @p field set to @p value.
template <typename Field, typename Value>
st_NodeInfoSignal withField(Field st_NodeInfoSignal::*field, const Value &value)
{
    st_NodeInfoSignal node;
    node.*field = value;
    return node;
}

// One record per field, each differing from the default in that field alone.
QList<st_NodeInfoSignal> singleFieldVariants()
{
    return {
        withField(&st_NodeInfoSignal::strNodeName, QStringList{ QStringLiteral("x") }),
        withField(&st_NodeInfoSignal::strSourceName, QStringLiteral("x")),
        withField(&st_NodeInfoSignal::nNodeData1, qint64(1)),
        withField(&st_NodeInfoSignal::isOnline, true),
        withField(&st_NodeInfoSignal::showOpBtn, QList<bool>{ false }),
        withField(&st_NodeInfoSignal::iType, 1),
        withField(&st_NodeInfoSignal::nNodeData2, qint64(1)),
        withField(&st_NodeInfoSignal::iSignalGroupNo, 1),
        withField(&st_NodeInfoSignal::eInputSourceType, 1),
        withField(&st_NodeInfoSignal::iInputSourceNo, 1),
    };
}

// A record with the leading ordering keys set: input source number, signal
// group number and name lines.
st_NodeInfoSignal keyed(int source, int group, const QStringList &name)
{
    st_NodeInfoSignal node;
    node.iInputSourceNo = source;
    node.iSignalGroupNo = group;
    node.strNodeName = name;
    return node;
}

// A mixed set for the ordering laws: ties on the leading keys, negatives,
// names of different lengths.
QList<st_NodeInfoSignal> variedRecords()
{
    QList<st_NodeInfoSignal> out = singleFieldVariants();
    out << st_NodeInfoSignal() << fullRecord();
    const int sources[] = { -3, 0, 2 };
    const int groups[] = { 0, 5 };
    const QStringList names[] = { QStringList(), QStringList{ QStringLiteral("a") },
                                  QStringList{ QStringLiteral("a"), QStringLiteral("b") },
                                  QStringList{ QStringLiteral("b") } };
    for (int source : sources) {
        for (int group : groups) {
            for (const QStringList &name : names) {
                st_NodeInfoSignal n = keyed(source, group, name);
                n.nNodeData1 = source * 1000 + group;
                out << n;
            }
        }
    }
    st_NodeInfoSignal extreme;
    extreme.nNodeData1 = std::numeric_limits<qint64>::min();
    extreme.nNodeData2 = std::numeric_limits<qint64>::max();
    out << extreme;
    return out;
}

QString capturedMessage;
void captureHandler(QtMsgType, const QMessageLogContext &, const QString &message)
{
    capturedMessage = message;
}

} // namespace

class tst_st_NodeInfoSignal : public QObject
{
    Q_OBJECT

private slots:
    void defaults();
    void copyConstructorCopiesEveryField();
    void assignmentCopiesEveryField();
    void assignmentOverwritesEveryField();
    void selfAssignmentLeavesRecordUnchanged();
    void copiesAreIndependent();
    void copiesKeep64BitValues_data();
    void copiesKeep64BitValues();
    void orderingIsStrictWeak();
    void orderingLeadingKeys_data();
    void orderingLeadingKeys();
    void singleFieldDifferenceIsNotEquivalent();
    void usableAsMapKey();
    void namelessTrace_data();
    void namelessTrace();
    void namelessTraceThroughMessageHandler();
    void namelessTraceOmitsHostValues();
};

void tst_st_NodeInfoSignal::defaults()
{
    const st_NodeInfoSignal node;
    checkDefaultRecord(node);
}

void tst_st_NodeInfoSignal::copyConstructorCopiesEveryField()
{
    const st_NodeInfoSignal source = fullRecord();
    const st_NodeInfoSignal copy(source);
    checkFullRecord(copy);
    checkFullRecord(source);
}

void tst_st_NodeInfoSignal::assignmentCopiesEveryField()
{
    const st_NodeInfoSignal source = fullRecord();
    st_NodeInfoSignal target;
    target = source;
    checkFullRecord(target);
}

void tst_st_NodeInfoSignal::assignmentOverwritesEveryField()
{
    // Back to the defaults: nothing of the old value may survive.
    st_NodeInfoSignal target = fullRecord();
    const st_NodeInfoSignal blank;
    st_NodeInfoSignal &result = (target = blank);
    QCOMPARE(&result, &target);
    checkDefaultRecord(target);
}

void tst_st_NodeInfoSignal::selfAssignmentLeavesRecordUnchanged()
{
    st_NodeInfoSignal node = fullRecord();
    const st_NodeInfoSignal &alias = node;
    st_NodeInfoSignal &result = (node = alias);
    QCOMPARE(&result, &node);
    checkFullRecord(node);

    st_NodeInfoSignal blank;
    const st_NodeInfoSignal &blankAlias = blank;
    blank = blankAlias;
    QVERIFY(sameRecord(blank, st_NodeInfoSignal()));
    QVERIFY(!blank.strSourceName.isNull());
}

void tst_st_NodeInfoSignal::copiesAreIndependent()
{
    st_NodeInfoSignal original = fullRecord();
    st_NodeInfoSignal constructed(original);
    st_NodeInfoSignal assigned;
    assigned = original;

    original.strNodeName[0] = QStringLiteral("changed");
    original.strNodeName.append(QStringLiteral("third"));
    original.strSourceName.append(QStringLiteral("!"));
    original.showOpBtn[1] = true;
    original.nNodeData1 = 1;
    original.iInputSourceNo = -1;

    checkFullRecord(constructed);
    checkFullRecord(assigned);
}

void tst_st_NodeInfoSignal::copiesKeep64BitValues_data()
{
    QTest::addColumn<qint64>("data1");
    QTest::addColumn<qint64>("data2");
    QTest::newRow("zero") << qint64(0) << qint64(0);
    QTest::newRow("2^32 and 2^32+1") << (Q_INT64_C(1) << 32) << ((Q_INT64_C(1) << 32) + 1);
    QTest::newRow("2^32-1 and 2^33") << Q_INT64_C(0xFFFFFFFF) << (Q_INT64_C(1) << 33);
    QTest::newRow("high and low words differ") << Q_INT64_C(0x7FFFFFFF00000001) << Q_INT64_C(0x00000001FFFFFFFF);
    QTest::newRow("minus one") << qint64(-1) << qint64(-1);
    QTest::newRow("negative beyond 32 bits") << -(Q_INT64_C(1) << 40) << Q_INT64_C(-4294967297);
    QTest::newRow("extremes") << std::numeric_limits<qint64>::max() << std::numeric_limits<qint64>::min();
    QTest::newRow("extremes swapped") << std::numeric_limits<qint64>::min() << std::numeric_limits<qint64>::max();
    QTest::newRow("bit pattern") << qint64(Q_UINT64_C(0xDEADBEEFCAFEBABE)) << Q_INT64_C(0x0123456789ABCDEF);
}

void tst_st_NodeInfoSignal::copiesKeep64BitValues()
{
    QFETCH(qint64, data1);
    QFETCH(qint64, data2);

    st_NodeInfoSignal source;
    source.nNodeData1 = data1;
    source.nNodeData2 = data2;

    const st_NodeInfoSignal constructed(source);
    QCOMPARE(constructed.nNodeData1, data1);
    QCOMPARE(constructed.nNodeData2, data2);

    st_NodeInfoSignal assigned = fullRecord();
    assigned = source;
    QCOMPARE(assigned.nNodeData1, data1);
    QCOMPARE(assigned.nNodeData2, data2);

    // Through an implicitly shared container and out again.
    QList<st_NodeInfoSignal> list;
    list << source;
    const QList<st_NodeInfoSignal> listCopy = list;
    QCOMPARE(listCopy.at(0).nNodeData1, data1);
    QCOMPARE(listCopy.at(0).nNodeData2, data2);
    QCOMPARE(quint64(listCopy.at(0).nNodeData1), quint64(data1));
}

void tst_st_NodeInfoSignal::orderingIsStrictWeak()
{
    const QList<st_NodeInfoSignal> records = variedRecords();
    auto equivalent = [](const st_NodeInfoSignal &a, const st_NodeInfoSignal &b) {
        return !(a < b) && !(b < a);
    };
    for (int i = 0; i < records.size(); ++i) {
        const st_NodeInfoSignal &a = records.at(i);
        QVERIFY2(!(a < a), qPrintable(QStringLiteral("irreflexive fails at %1").arg(i)));
        for (int j = 0; j < records.size(); ++j) {
            const st_NodeInfoSignal &b = records.at(j);
            if (a < b)
                QVERIFY2(!(b < a), qPrintable(QStringLiteral("asymmetry fails at %1,%2").arg(i).arg(j)));
            for (int k = 0; k < records.size(); ++k) {
                const st_NodeInfoSignal &c = records.at(k);
                if (a < b && b < c)
                    QVERIFY2(a < c, qPrintable(QStringLiteral("transitivity fails at %1,%2,%3").arg(i).arg(j).arg(k)));
                if (equivalent(a, b) && equivalent(b, c))
                    QVERIFY(equivalent(a, c));
            }
        }
    }
}

void tst_st_NodeInfoSignal::orderingLeadingKeys_data()
{
    // Each row: a record that must come strictly before another.
    QTest::addColumn<int>("lowSource");
    QTest::addColumn<int>("lowGroup");
    QTest::addColumn<QStringList>("lowName");
    QTest::addColumn<int>("highSource");
    QTest::addColumn<int>("highGroup");
    QTest::addColumn<QStringList>("highName");

    const QStringList a{ QStringLiteral("a") };
    const QStringList z{ QStringLiteral("z") };
    QTest::newRow("source number decides before group")
        << 1 << 9 << z << 2 << 0 << a;
    QTest::newRow("negative source first") << -5 << 0 << a << 0 << 0 << a;
    QTest::newRow("group decides before name") << 3 << 1 << z << 3 << 2 << a;
    QTest::newRow("name decides on equal numbers") << 3 << 2 << a << 3 << 2 << z;
    QTest::newRow("name line by line: first line first")
        << 0 << 0 << QStringList{ QStringLiteral("a"), QStringLiteral("z") }
        << 0 << 0 << QStringList{ QStringLiteral("b"), QStringLiteral("a") };
    QTest::newRow("name line by line: second line next")
        << 0 << 0 << QStringList{ QStringLiteral("a"), QStringLiteral("a") }
        << 0 << 0 << QStringList{ QStringLiteral("a"), QStringLiteral("b") };
    QTest::newRow("shorter name that is a prefix first")
        << 0 << 0 << a << 0 << 0 << QStringList{ QStringLiteral("a"), QStringLiteral("a") };
    QTest::newRow("no name before a name") << 0 << 0 << QStringList() << 0 << 0 << a;
}

void tst_st_NodeInfoSignal::orderingLeadingKeys()
{
    QFETCH(int, lowSource);
    QFETCH(int, lowGroup);
    QFETCH(QStringList, lowName);
    QFETCH(int, highSource);
    QFETCH(int, highGroup);
    QFETCH(QStringList, highName);

    st_NodeInfoSignal low = keyed(lowSource, lowGroup, lowName);
    // Later keys pull the other way, so only the leading keys can decide.
    low.strSourceName = QStringLiteral("zzz");
    low.iType = 99;
    low.nNodeData1 = 99;

    const st_NodeInfoSignal high = keyed(highSource, highGroup, highName);

    QVERIFY(low < high);
    QVERIFY(!(high < low));
}

void tst_st_NodeInfoSignal::singleFieldDifferenceIsNotEquivalent()
{
    const st_NodeInfoSignal base;
    const QList<st_NodeInfoSignal> variants = singleFieldVariants();
    QCOMPARE(variants.size(), 10);
    for (int i = 0; i < variants.size(); ++i) {
        const st_NodeInfoSignal &v = variants.at(i);
        QVERIFY2((base < v) != (v < base),
                 qPrintable(QStringLiteral("field %1 alone does not separate two records").arg(i + 1)));
    }
}

void tst_st_NodeInfoSignal::usableAsMapKey()
{
    QMap<st_NodeInfoSignal, QList<st_NodeInfoSignal>> tree;
    const QList<st_NodeInfoSignal> variants = singleFieldVariants();
    tree.insert(st_NodeInfoSignal(), QList<st_NodeInfoSignal>());
    for (int i = 0; i < variants.size(); ++i) {
        st_NodeInfoSignal child;
        child.iType = i;
        tree.insert(variants.at(i), QList<st_NodeInfoSignal>{ child });
    }
    QCOMPARE(tree.size(), 11);

    // Each key finds its own value back.
    for (int i = 0; i < variants.size(); ++i) {
        QVERIFY(tree.contains(variants.at(i)));
        QCOMPARE(tree.value(variants.at(i)).size(), 1);
        QCOMPARE(tree.value(variants.at(i)).at(0).iType, i);
    }

    // An equal key replaces, it does not add.
    tree.insert(fullRecord(), QList<st_NodeInfoSignal>());
    tree.insert(fullRecord(), QList<st_NodeInfoSignal>{ fullRecord() });
    QCOMPARE(tree.size(), 12);
    QCOMPARE(tree.value(fullRecord()).size(), 1);

    // Keys come out in ascending source number order.
    QMap<st_NodeInfoSignal, int> bySource;
    for (int source : { 5, -2, 3, 0 }) {
        st_NodeInfoSignal key;
        key.iInputSourceNo = source;
        bySource.insert(key, source);
    }
    QCOMPARE(bySource.values(), (QList<int>{ -2, 0, 3, 5 }));
}

void tst_st_NodeInfoSignal::namelessTrace_data()
{
    QTest::addColumn<QString>("sourceName");
    QTest::addColumn<bool>("online");
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("sourceType");
    QTest::addColumn<QList<bool>>("buttons");
    QTest::addColumn<int>("sourceNo");
    QTest::addColumn<int>("groupNo");
    QTest::addColumn<QString>("expected");

    QTest::newRow("default record")
        << QString::fromLatin1("") << false << 0 << 0 << QList<bool>() << 0 << 0
        << QStringLiteral("m_stSelNodeInfo.strNodeName.isEmpty , strSourceName: \"\" , isOnline: false"
                          " , iType: 0 , eInputSourceType: 0 , showOpBtn: () , iInputSourceNo: 0"
                          " , iSignalGroupNo: 0");
    QTest::newRow("every field set")
        << QStringLiteral("Source A") << true << 7 << 3 << QList<bool>{ true, false } << 12 << 5
        << QStringLiteral("m_stSelNodeInfo.strNodeName.isEmpty , strSourceName: \"Source A\" , isOnline: true"
                          " , iType: 7 , eInputSourceType: 3 , showOpBtn: (true, false) , iInputSourceNo: 12"
                          " , iSignalGroupNo: 5");
    QTest::newRow("negative numbers, one flag")
        << QStringLiteral("x") << false << -1 << -20 << QList<bool>{ false } << -300 << -4000
        << QStringLiteral("m_stSelNodeInfo.strNodeName.isEmpty , strSourceName: \"x\" , isOnline: false"
                          " , iType: -1 , eInputSourceType: -20 , showOpBtn: (false) , iInputSourceNo: -300"
                          " , iSignalGroupNo: -4000");
    QTest::newRow("four flags, large numbers")
        << QStringLiteral("HDMI 1") << true << 18 << 2147483647
        << QList<bool>{ true, true, false, true } << -2147483647 - 1 << 65536
        << QStringLiteral("m_stSelNodeInfo.strNodeName.isEmpty , strSourceName: \"HDMI 1\" , isOnline: true"
                          " , iType: 18 , eInputSourceType: 2147483647 , showOpBtn: (true, true, false, true)"
                          " , iInputSourceNo: -2147483648 , iSignalGroupNo: 65536");
}

void tst_st_NodeInfoSignal::namelessTrace()
{
    QFETCH(QString, sourceName);
    QFETCH(bool, online);
    QFETCH(int, type);
    QFETCH(int, sourceType);
    QFETCH(QList<bool>, buttons);
    QFETCH(int, sourceNo);
    QFETCH(int, groupNo);
    QFETCH(QString, expected);

    st_NodeInfoSignal node;
    node.strSourceName = sourceName;
    node.isOnline = online;
    node.iType = type;
    node.eInputSourceType = sourceType;
    node.showOpBtn = buttons;
    node.iInputSourceNo = sourceNo;
    node.iSignalGroupNo = groupNo;
    node.nNodeData1 = Q_INT64_C(7777777777777);
    node.nNodeData2 = Q_INT64_C(8888888888888);

    QString text;
    writeNamelessNodeTrace(QDebug(&text), node);
    // A QDebug writing into a string leaves the separator after the last
    // piece; only that one space is Qt's, the rest must match exactly.
    QVERIFY(text.endsWith(QLatin1Char(' ')));
    text.chop(1);
    QCOMPARE(text, expected);
}

void tst_st_NodeInfoSignal::namelessTraceThroughMessageHandler()
{
    st_NodeInfoSignal node;
    node.strNodeName = QStringList{ QStringLiteral("never printed") };
    node.strSourceName = QStringLiteral("Cam");
    node.isOnline = true;
    node.iType = 4;
    node.eInputSourceType = 1;
    node.showOpBtn = QList<bool>{ false, true, true };
    node.iInputSourceNo = 2;
    node.iSignalGroupNo = 9;

    capturedMessage.clear();
    const QtMessageHandler previous = qInstallMessageHandler(captureHandler);
    writeNamelessNodeTrace(qDebug(), node);
    qInstallMessageHandler(previous);

    QCOMPARE(capturedMessage,
             QStringLiteral("m_stSelNodeInfo.strNodeName.isEmpty , strSourceName: \"Cam\" , isOnline: true"
                            " , iType: 4 , eInputSourceType: 1 , showOpBtn: (false, true, true)"
                            " , iInputSourceNo: 2 , iSignalGroupNo: 9"));
    QVERIFY(!capturedMessage.contains(QStringLiteral("never printed")));
}

void tst_st_NodeInfoSignal::namelessTraceOmitsHostValues()
{
    st_NodeInfoSignal node = fullRecord();
    node.nNodeData1 = Q_INT64_C(987654321012345);
    node.nNodeData2 = Q_INT64_C(-555444333222111);
    QString text;
    writeNamelessNodeTrace(QDebug(&text), node);
    QVERIFY(!text.isEmpty());
    QVERIFY(text.startsWith(QStringLiteral("m_stSelNodeInfo.strNodeName.isEmpty")));
    QVERIFY(!text.contains(QStringLiteral("987654321012345")));
    QVERIFY(!text.contains(QStringLiteral("555444333222111")));
    QVERIFY(!text.contains(QStringLiteral("nNodeData")));
    QVERIFY(!text.contains(QStringLiteral("Upper line")));
    QVERIFY(!text.contains(QStringLiteral("Lower line")));
}

QTEST_MAIN(tst_st_NodeInfoSignal)
#include "tst_st_nodeinfosignal.moc"
