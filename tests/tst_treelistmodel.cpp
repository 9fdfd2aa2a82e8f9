// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#include "TreeListModel.h"

#include <QPointer>
#include <QtTest>

#include <climits>

// Rows are told apart by nNodeData1, which the model copies untouched.
using Ids = QList<qint64>;
using ChildIds = QList<Ids>;

namespace {

st_NodeInfoSignal node(qint64 id)
{
    st_NodeInfoSignal n;
    n.nNodeData1 = id;
    n.strNodeName = QStringList{ QStringLiteral("node %1").arg(id) };
    return n;
}

QList<st_NodeInfoSignal> nodes(const Ids &ids)
{
    QList<st_NodeInfoSignal> out;
    for (qint64 id : ids)
        out << node(id);
    return out;
}

Ids rootIds(const TreeListModel &model)
{
    Ids out;
    for (const st_NodeInfoSignal &n : model.rootNodes())
        out << n.nNodeData1;
    return out;
}

ChildIds childIds(const TreeListModel &model)
{
    ChildIds out;
    for (const QList<st_NodeInfoSignal> &children : model.childNodes()) {
        Ids ids;
        for (const st_NodeInfoSignal &n : children)
            ids << n.nNodeData1;
        out << ids;
    }
    return out;
}

// The standard model of these tests: four roots 10..13 with the children
// [1000, 1001], [1010, 1011, 1012], [] and [1030].
void fill(TreeListModel &model)
{
    model.insertRootItem(node(10), nodes({ 1000, 1001 }), 0);
    model.insertRootItem(node(11), nodes({ 1010, 1011, 1012 }), 1);
    model.insertRootItem(node(12), 2);
    model.insertRootItem(node(13), nodes({ 1030 }), 3);
}

const Ids kRoots{ 10, 11, 12, 13 };
const ChildIds kChildren{ { 1000, 1001 }, { 1010, 1011, 1012 }, {}, { 1030 } };

} // namespace

// Both lists must always have the same length; checked after every step.
#define CHECK_INVARIANT(model) \
    QCOMPARE((model).rootNodes().size(), (model).childNodes().size())

#define CHECK_UNCHANGED(model)                 \
    do {                                       \
        CHECK_INVARIANT(model);                \
        QCOMPARE(rootIds(model), kRoots);      \
        QCOMPARE(childIds(model), kChildren);  \
    } while (false)

class tst_TreeListModel : public QObject
{
    Q_OBJECT

private slots:
    void construction();
    void metaObjectHasNothingOfItsOwn();
    void destroyedWithParent();
    void fixture();

    void insertRootItem_data();
    void insertRootItem();
    void insertRootItemWithChildren_data();
    void insertRootItemWithChildren();
    void insertRootItemOutsideRange_data();
    void insertRootItemOutsideRange();
    void insertIntoEmptyModel();
    void insertedRecordIsACopy();

    void setChildItems_data();
    void setChildItems();

    void updateTreeListEmptyMap();
    void updateTreeListThreeKeysAscending();
    void updateTreeListReplacesEverything();

    void deleteItem_data();
    void deleteItem();
    void deleteRootItem_data();
    void deleteRootItem();
    void deleteRootItemPastEndChangesNeitherList();
    void deleteRootZeroEvenWhenAlone();

    void modifyItemData_data();
    void modifyItemData();
    void modifyRootItem_data();
    void modifyRootItem();
    void modifyRootItemCopiesEveryField();
    void modifyChildItem_data();
    void modifyChildItem();
    void modifyChildItemCopiesEveryField();

    void operationsOnEmptyModel();
};

void tst_TreeListModel::construction()
{
    QObject parent;
    TreeListModel model(&parent);
    QCOMPARE(model.parent(), &parent);
    QVERIFY(model.rootNodes().isEmpty());
    QVERIFY(model.childNodes().isEmpty());

    TreeListModel orphan(nullptr);
    QCOMPARE(orphan.parent(), static_cast<QObject *>(nullptr));
    QVERIFY(orphan.rootNodes().isEmpty());
    QVERIFY(orphan.childNodes().isEmpty());
}

void tst_TreeListModel::metaObjectHasNothingOfItsOwn()
{
    TreeListModel model(nullptr);
    const QMetaObject *meta = model.metaObject();
    QCOMPARE(QString::fromLatin1(meta->className()), QStringLiteral("TreeListModel"));
    QCOMPARE(meta->superClass(), &QObject::staticMetaObject);
    QCOMPARE(meta->methodCount(), QObject::staticMetaObject.methodCount());
    QCOMPARE(meta->propertyCount(), QObject::staticMetaObject.propertyCount());
    QCOMPARE(meta->enumeratorCount(), QObject::staticMetaObject.enumeratorCount());
    QVERIFY(qobject_cast<TreeListModel *>(&model) == &model);
}

void tst_TreeListModel::destroyedWithParent()
{
    auto *parent = new QObject;
    QPointer<TreeListModel> model = new TreeListModel(parent);
    fill(*model);
    delete parent;
    QVERIFY(model.isNull());
}

void tst_TreeListModel::fixture()
{
    TreeListModel model(nullptr);
    fill(model);
    CHECK_UNCHANGED(model);
}

void tst_TreeListModel::insertRootItem_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<Ids>("roots");
    QTest::addColumn<ChildIds>("children");

    QTest::newRow("front") << 0 << Ids{ 99, 10, 11, 12, 13 }
                           << ChildIds{ {}, { 1000, 1001 }, { 1010, 1011, 1012 }, {}, { 1030 } };
    QTest::newRow("second") << 1 << Ids{ 10, 99, 11, 12, 13 }
                            << ChildIds{ { 1000, 1001 }, {}, { 1010, 1011, 1012 }, {}, { 1030 } };
    QTest::newRow("before last") << 3 << Ids{ 10, 11, 12, 99, 13 }
                                 << ChildIds{ { 1000, 1001 }, { 1010, 1011, 1012 }, {}, {}, { 1030 } };
    QTest::newRow("append at count") << 4 << Ids{ 10, 11, 12, 13, 99 }
                                     << ChildIds{ { 1000, 1001 }, { 1010, 1011, 1012 }, {}, { 1030 }, {} };
}

void tst_TreeListModel::insertRootItem()
{
    QFETCH(int, index);
    QFETCH(Ids, roots);
    QFETCH(ChildIds, children);

    TreeListModel model(nullptr);
    fill(model);
    model.insertRootItem(node(99), index);
    CHECK_INVARIANT(model);
    QCOMPARE(rootIds(model), roots);
    QCOMPARE(childIds(model), children);
}

void tst_TreeListModel::insertRootItemWithChildren_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<Ids>("roots");
    QTest::addColumn<ChildIds>("children");

    QTest::newRow("front") << 0 << Ids{ 99, 10, 11, 12, 13 }
                           << ChildIds{ { 9900, 9901 }, { 1000, 1001 }, { 1010, 1011, 1012 }, {}, { 1030 } };
    QTest::newRow("middle") << 2 << Ids{ 10, 11, 99, 12, 13 }
                            << ChildIds{ { 1000, 1001 }, { 1010, 1011, 1012 }, { 9900, 9901 }, {}, { 1030 } };
    QTest::newRow("append at count") << 4 << Ids{ 10, 11, 12, 13, 99 }
                                     << ChildIds{ { 1000, 1001 }, { 1010, 1011, 1012 }, {}, { 1030 }, { 9900, 9901 } };
}

void tst_TreeListModel::insertRootItemWithChildren()
{
    QFETCH(int, index);
    QFETCH(Ids, roots);
    QFETCH(ChildIds, children);

    TreeListModel model(nullptr);
    fill(model);
    model.insertRootItem(node(99), nodes({ 9900, 9901 }), index);
    CHECK_INVARIANT(model);
    QCOMPARE(rootIds(model), roots);
    QCOMPARE(childIds(model), children);
}

void tst_TreeListModel::insertRootItemOutsideRange_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<bool>("withChildren");
    const int indices[] = { -1, -2, 5, 6, 100, INT_MAX, INT_MIN };
    for (bool withChildren : { false, true }) {
        for (int index : indices) {
            QTest::newRow(qPrintable(QStringLiteral("%1%2").arg(index).arg(withChildren ? " with children" : "")))
                << index << withChildren;
        }
    }
}

void tst_TreeListModel::insertRootItemOutsideRange()
{
    QFETCH(int, index);
    QFETCH(bool, withChildren);

    TreeListModel model(nullptr);
    fill(model);
    if (withChildren)
        model.insertRootItem(node(99), nodes({ 9900 }), index);
    else
        model.insertRootItem(node(99), index);
    CHECK_UNCHANGED(model);
}

void tst_TreeListModel::insertIntoEmptyModel()
{
    TreeListModel model(nullptr);
    model.insertRootItem(node(1), 1);
    CHECK_INVARIANT(model);
    QVERIFY(model.rootNodes().isEmpty());

    model.insertRootItem(node(1), -1);
    CHECK_INVARIANT(model);
    QVERIFY(model.rootNodes().isEmpty());

    model.insertRootItem(node(1), 0);
    CHECK_INVARIANT(model);
    QCOMPARE(rootIds(model), Ids{ 1 });
    QCOMPARE(childIds(model), ChildIds{ {} });

    model.insertRootItem(node(2), nodes({ 20 }), 0);
    CHECK_INVARIANT(model);
    QCOMPARE(rootIds(model), (Ids{ 2, 1 }));
    QCOMPARE(childIds(model), (ChildIds{ { 20 }, {} }));
}

void tst_TreeListModel::insertedRecordIsACopy()
{
    TreeListModel model(nullptr);
    st_NodeInfoSignal root = node(5);
    QList<st_NodeInfoSignal> children = nodes({ 50, 51 });
    model.insertRootItem(root, children, 0);
    root.nNodeData1 = 6;
    children[0].nNodeData1 = 60;
    children.append(node(52));
    QCOMPARE(rootIds(model), Ids{ 5 });
    QCOMPARE(childIds(model), (ChildIds{ { 50, 51 } }));
}

void tst_TreeListModel::setChildItems_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<Ids>("replacement");
    QTest::addColumn<ChildIds>("children");

    // Unlike deleting and modifying, setting children has no lower bound.
    QTest::newRow("first root") << 0 << Ids{ 7, 8 }
                                << ChildIds{ { 7, 8 }, { 1010, 1011, 1012 }, {}, { 1030 } };
    QTest::newRow("second root") << 1 << Ids{ 7 }
                                 << ChildIds{ { 1000, 1001 }, { 7 }, {}, { 1030 } };
    QTest::newRow("empty list gets children") << 2 << Ids{ 7, 8, 9 }
                                              << ChildIds{ { 1000, 1001 }, { 1010, 1011, 1012 }, { 7, 8, 9 }, { 1030 } };
    QTest::newRow("last root emptied") << 3 << Ids{}
                                       << ChildIds{ { 1000, 1001 }, { 1010, 1011, 1012 }, {}, {} };
    QTest::newRow("past the end") << 4 << Ids{ 7 } << kChildren;
    QTest::newRow("far past the end") << INT_MAX << Ids{ 7 } << kChildren;
    QTest::newRow("negative") << -1 << Ids{ 7 } << kChildren;
    QTest::newRow("most negative") << INT_MIN << Ids{ 7 } << kChildren;
}

void tst_TreeListModel::setChildItems()
{
    QFETCH(int, index);
    QFETCH(Ids, replacement);
    QFETCH(ChildIds, children);

    TreeListModel model(nullptr);
    fill(model);
    model.setChildItems(index, nodes(replacement));
    CHECK_INVARIANT(model);
    QCOMPARE(rootIds(model), kRoots);
    QCOMPARE(childIds(model), children);
}

void tst_TreeListModel::updateTreeListEmptyMap()
{
    TreeListModel model(nullptr);
    model.updateTreeList(QMap<st_NodeInfoSignal, QList<st_NodeInfoSignal>>());
    CHECK_INVARIANT(model);
    QVERIFY(model.rootNodes().isEmpty());

    fill(model);
    model.updateTreeList(QMap<st_NodeInfoSignal, QList<st_NodeInfoSignal>>());
    CHECK_INVARIANT(model);
    QVERIFY(model.rootNodes().isEmpty());
    QVERIFY(model.childNodes().isEmpty());
}

void tst_TreeListModel::updateTreeListThreeKeysAscending()
{
    // Keys ordered by their input source number; inserted out of order.
    auto key = [](int sourceNo, qint64 id) {
        st_NodeInfoSignal n = node(id);
        n.iInputSourceNo = sourceNo;
        return n;
    };
    QMap<st_NodeInfoSignal, QList<st_NodeInfoSignal>> tree;
    tree.insert(key(3, 30), nodes({ 300, 301, 302 }));
    tree.insert(key(1, 10), nodes({ 100 }));
    tree.insert(key(2, 20), nodes({}));

    TreeListModel model(nullptr);
    model.updateTreeList(tree);
    CHECK_INVARIANT(model);
    QCOMPARE(rootIds(model), (Ids{ 10, 20, 30 }));
    QCOMPARE(childIds(model), (ChildIds{ { 100 }, {}, { 300, 301, 302 } }));
    QCOMPARE(model.rootNodes().at(0).iInputSourceNo, 1);
    QCOMPARE(model.rootNodes().at(2).iInputSourceNo, 3);

    // The model keeps copies: changing the map afterwards changes nothing.
    tree.clear();
    QCOMPARE(rootIds(model), (Ids{ 10, 20, 30 }));
    QCOMPARE(childIds(model), (ChildIds{ { 100 }, {}, { 300, 301, 302 } }));
}

void tst_TreeListModel::updateTreeListReplacesEverything()
{
    TreeListModel model(nullptr);
    fill(model);
    QMap<st_NodeInfoSignal, QList<st_NodeInfoSignal>> tree;
    tree.insert(node(77), nodes({ 770 }));
    model.updateTreeList(tree);
    CHECK_INVARIANT(model);
    QCOMPARE(rootIds(model), Ids{ 77 });
    QCOMPARE(childIds(model), ChildIds{ { 770 } });
}

void tst_TreeListModel::deleteItem_data()
{
    QTest::addColumn<QList<int>>("path");
    QTest::addColumn<Ids>("roots");
    QTest::addColumn<ChildIds>("children");

    QTest::newRow("empty path") << QList<int>() << kRoots << kChildren;
    QTest::newRow("[0] root zero is kept") << QList<int>{ 0 } << kRoots << kChildren;
    QTest::newRow("[1]") << QList<int>{ 1 } << Ids{ 10, 12, 13 }
                         << ChildIds{ { 1000, 1001 }, {}, { 1030 } };
    QTest::newRow("[2]") << QList<int>{ 2 } << Ids{ 10, 11, 13 }
                         << ChildIds{ { 1000, 1001 }, { 1010, 1011, 1012 }, { 1030 } };
    QTest::newRow("[3] last") << QList<int>{ 3 } << Ids{ 10, 11, 12 }
                              << ChildIds{ { 1000, 1001 }, { 1010, 1011, 1012 }, {} };
    QTest::newRow("[4] past the end") << QList<int>{ 4 } << kRoots << kChildren;
    QTest::newRow("[-1]") << QList<int>{ -1 } << kRoots << kChildren;
    QTest::newRow("[INT_MIN]") << QList<int>{ INT_MIN } << kRoots << kChildren;
    QTest::newRow("[INT_MAX]") << QList<int>{ INT_MAX } << kRoots << kChildren;
    // Child rows are never removed through the model.
    QTest::newRow("[1,1] child") << QList<int>{ 1, 1 } << kRoots << kChildren;
    QTest::newRow("[1,0] child") << QList<int>{ 1, 0 } << kRoots << kChildren;
    QTest::newRow("[0,0] child") << QList<int>{ 0, 0 } << kRoots << kChildren;
    QTest::newRow("[3,0] child") << QList<int>{ 3, 0 } << kRoots << kChildren;
    QTest::newRow("[9,9] child out of range") << QList<int>{ 9, 9 } << kRoots << kChildren;
    QTest::newRow("[-1,-1] child") << QList<int>{ -1, -1 } << kRoots << kChildren;
    QTest::newRow("length 3") << QList<int>{ 1, 1, 1 } << kRoots << kChildren;
    QTest::newRow("length 3 starting 2") << QList<int>{ 2, 0, 0 } << kRoots << kChildren;
    QTest::newRow("length 4") << QList<int>{ 1, 2, 3, 4 } << kRoots << kChildren;
}

void tst_TreeListModel::deleteItem()
{
    QFETCH(QList<int>, path);
    QFETCH(Ids, roots);
    QFETCH(ChildIds, children);

    TreeListModel model(nullptr);
    fill(model);
    model.deleteItem(path);
    CHECK_INVARIANT(model);
    QCOMPARE(rootIds(model), roots);
    QCOMPARE(childIds(model), children);
}

void tst_TreeListModel::deleteRootItem_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<Ids>("roots");
    QTest::addColumn<ChildIds>("children");

    QTest::newRow("0 is never deleted") << 0 << kRoots << kChildren;
    QTest::newRow("-1") << -1 << kRoots << kChildren;
    QTest::newRow("INT_MIN") << INT_MIN << kRoots << kChildren;
    QTest::newRow("1") << 1 << Ids{ 10, 12, 13 } << ChildIds{ { 1000, 1001 }, {}, { 1030 } };
    QTest::newRow("2 (no children)") << 2 << Ids{ 10, 11, 13 }
                                     << ChildIds{ { 1000, 1001 }, { 1010, 1011, 1012 }, { 1030 } };
    QTest::newRow("3 last") << 3 << Ids{ 10, 11, 12 }
                            << ChildIds{ { 1000, 1001 }, { 1010, 1011, 1012 }, {} };
    QTest::newRow("4 past the end") << 4 << kRoots << kChildren;
    QTest::newRow("INT_MAX") << INT_MAX << kRoots << kChildren;
}

void tst_TreeListModel::deleteRootItem()
{
    QFETCH(int, index);
    QFETCH(Ids, roots);
    QFETCH(ChildIds, children);

    TreeListModel model(nullptr);
    fill(model);
    model.deleteRootItem(index);
    CHECK_INVARIANT(model);
    QCOMPARE(rootIds(model), roots);
    QCOMPARE(childIds(model), children);
}

void tst_TreeListModel::deleteRootItemPastEndChangesNeitherList()
{
    TreeListModel model(nullptr);
    fill(model);
    for (int index : { 4, 5, 1000 }) {
        model.deleteRootItem(index);
        CHECK_UNCHANGED(model);
    }
    // Deleting down to one root: only root 0 is left, and it stays.
    model.deleteRootItem(3);
    model.deleteRootItem(2);
    model.deleteRootItem(1);
    CHECK_INVARIANT(model);
    QCOMPARE(rootIds(model), Ids{ 10 });
    QCOMPARE(childIds(model), (ChildIds{ { 1000, 1001 } }));
    model.deleteRootItem(1);
    model.deleteRootItem(0);
    CHECK_INVARIANT(model);
    QCOMPARE(rootIds(model), Ids{ 10 });
}

void tst_TreeListModel::deleteRootZeroEvenWhenAlone()
{
    TreeListModel model(nullptr);
    model.insertRootItem(node(1), nodes({ 2 }), 0);
    model.deleteRootItem(0);
    model.deleteItem(QList<int>{ 0 });
    CHECK_INVARIANT(model);
    QCOMPARE(rootIds(model), Ids{ 1 });
    QCOMPARE(childIds(model), ChildIds{ { 2 } });
}

void tst_TreeListModel::modifyItemData_data()
{
    QTest::addColumn<QList<int>>("path");
    QTest::addColumn<Ids>("roots");
    QTest::addColumn<ChildIds>("children");

    QTest::newRow("empty path") << QList<int>() << kRoots << kChildren;
    QTest::newRow("[0] root zero untouchable") << QList<int>{ 0 } << kRoots << kChildren;
    QTest::newRow("[1]") << QList<int>{ 1 } << Ids{ 10, 99, 12, 13 } << kChildren;
    QTest::newRow("[3] last") << QList<int>{ 3 } << Ids{ 10, 11, 12, 99 } << kChildren;
    QTest::newRow("[4] past the end") << QList<int>{ 4 } << kRoots << kChildren;
    QTest::newRow("[-1]") << QList<int>{ -1 } << kRoots << kChildren;
    QTest::newRow("[1,1]") << QList<int>{ 1, 1 } << kRoots
                           << ChildIds{ { 1000, 1001 }, { 1010, 99, 1012 }, {}, { 1030 } };
    QTest::newRow("[1,2] last child") << QList<int>{ 1, 2 } << kRoots
                                      << ChildIds{ { 1000, 1001 }, { 1010, 1011, 99 }, {}, { 1030 } };
    QTest::newRow("[1,0] zero child ignored") << QList<int>{ 1, 0 } << kRoots << kChildren;
    QTest::newRow("[0,1] zero root ignored") << QList<int>{ 0, 1 } << kRoots << kChildren;
    QTest::newRow("[3,0] zero child ignored") << QList<int>{ 3, 0 } << kRoots << kChildren;
    QTest::newRow("[1,3] child past the end") << QList<int>{ 1, 3 } << kRoots << kChildren;
    QTest::newRow("[2,1] root without children") << QList<int>{ 2, 1 } << kRoots << kChildren;
    QTest::newRow("[4,1] root past the end") << QList<int>{ 4, 1 } << kRoots << kChildren;
    QTest::newRow("[-1,1]") << QList<int>{ -1, 1 } << kRoots << kChildren;
    QTest::newRow("[1,-1]") << QList<int>{ 1, -1 } << kRoots << kChildren;
    QTest::newRow("[INT_MAX,INT_MAX]") << QList<int>{ INT_MAX, INT_MAX } << kRoots << kChildren;
    QTest::newRow("length 3") << QList<int>{ 1, 1, 1 } << kRoots << kChildren;
    QTest::newRow("length 3 ending 2") << QList<int>{ 1, 0, 2 } << kRoots << kChildren;
    QTest::newRow("length 4") << QList<int>{ 1, 1, 1, 1 } << kRoots << kChildren;
}

void tst_TreeListModel::modifyItemData()
{
    QFETCH(QList<int>, path);
    QFETCH(Ids, roots);
    QFETCH(ChildIds, children);

    TreeListModel model(nullptr);
    fill(model);
    model.modifyItemData(path, node(99));
    CHECK_INVARIANT(model);
    QCOMPARE(rootIds(model), roots);
    QCOMPARE(childIds(model), children);
}

void tst_TreeListModel::modifyRootItem_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<Ids>("roots");

    QTest::newRow("0 untouchable") << 0 << kRoots;
    QTest::newRow("-1") << -1 << kRoots;
    QTest::newRow("INT_MIN") << INT_MIN << kRoots;
    QTest::newRow("1") << 1 << Ids{ 10, 99, 12, 13 };
    QTest::newRow("2") << 2 << Ids{ 10, 11, 99, 13 };
    QTest::newRow("3 last") << 3 << Ids{ 10, 11, 12, 99 };
    QTest::newRow("4 past the end") << 4 << kRoots;
    QTest::newRow("INT_MAX") << INT_MAX << kRoots;
}

void tst_TreeListModel::modifyRootItem()
{
    QFETCH(int, index);
    QFETCH(Ids, roots);

    TreeListModel model(nullptr);
    fill(model);
    model.modifyRootItem(index, node(99));
    CHECK_INVARIANT(model);
    QCOMPARE(rootIds(model), roots);
    QCOMPARE(childIds(model), kChildren);
}

void tst_TreeListModel::modifyRootItemCopiesEveryField()
{
    TreeListModel model(nullptr);
    fill(model);
    st_NodeInfoSignal replacement;
    replacement.strNodeName = QStringList{ QStringLiteral("up"), QStringLiteral("down") };
    replacement.strSourceName = QStringLiteral("Src");
    replacement.nNodeData1 = Q_INT64_C(0x100000001);
    replacement.isOnline = true;
    replacement.showOpBtn = QList<bool>{ false, true };
    replacement.iType = 1;
    replacement.nNodeData2 = Q_INT64_C(-0x200000002);
    replacement.iSignalGroupNo = 8;
    replacement.eInputSourceType = 6;
    replacement.iInputSourceNo = 4;
    model.modifyRootItem(2, replacement);

    const st_NodeInfoSignal &r = model.rootNodes().at(2);
    QCOMPARE(r.strNodeName, (QStringList{ QStringLiteral("up"), QStringLiteral("down") }));
    QCOMPARE(r.strSourceName, QStringLiteral("Src"));
    QCOMPARE(r.nNodeData1, Q_INT64_C(4294967297));
    QCOMPARE(r.isOnline, true);
    QCOMPARE(r.showOpBtn, (QList<bool>{ false, true }));
    QCOMPARE(r.iType, 1);
    QCOMPARE(r.nNodeData2, Q_INT64_C(-8589934594));
    QCOMPARE(r.iSignalGroupNo, 8);
    QCOMPARE(r.eInputSourceType, 6);
    QCOMPARE(r.iInputSourceNo, 4);
    CHECK_INVARIANT(model);
}

void tst_TreeListModel::modifyChildItem_data()
{
    QTest::addColumn<int>("root");
    QTest::addColumn<int>("child");
    QTest::addColumn<ChildIds>("children");

    QTest::newRow("(1,1)") << 1 << 1 << ChildIds{ { 1000, 1001 }, { 1010, 99, 1012 }, {}, { 1030 } };
    QTest::newRow("(1,2) last child") << 1 << 2 << ChildIds{ { 1000, 1001 }, { 1010, 1011, 99 }, {}, { 1030 } };
    QTest::newRow("(0,1) zero root ignored") << 0 << 1 << kChildren;
    QTest::newRow("(1,0) zero child ignored") << 1 << 0 << kChildren;
    QTest::newRow("(0,0) both zero") << 0 << 0 << kChildren;
    QTest::newRow("(3,0) zero child of last root") << 3 << 0 << kChildren;
    QTest::newRow("(1,3) child past the end") << 1 << 3 << kChildren;
    QTest::newRow("(2,1) root without children") << 2 << 1 << kChildren;
    QTest::newRow("(3,1) child past the end") << 3 << 1 << kChildren;
    QTest::newRow("(4,1) root past the end") << 4 << 1 << kChildren;
    QTest::newRow("(-1,1)") << -1 << 1 << kChildren;
    QTest::newRow("(1,-1)") << 1 << -1 << kChildren;
    QTest::newRow("(INT_MIN,INT_MIN)") << INT_MIN << INT_MIN << kChildren;
    QTest::newRow("(INT_MAX,1)") << INT_MAX << 1 << kChildren;
    QTest::newRow("(1,INT_MAX)") << 1 << INT_MAX << kChildren;
}

void tst_TreeListModel::modifyChildItem()
{
    QFETCH(int, root);
    QFETCH(int, child);
    QFETCH(ChildIds, children);

    TreeListModel model(nullptr);
    fill(model);
    model.modifyChildItem(root, child, node(99));
    CHECK_INVARIANT(model);
    QCOMPARE(rootIds(model), kRoots);
    QCOMPARE(childIds(model), children);
}

void tst_TreeListModel::modifyChildItemCopiesEveryField()
{
    TreeListModel model(nullptr);
    fill(model);
    st_NodeInfoSignal replacement;
    replacement.strNodeName = QStringList{ QStringLiteral("child") };
    replacement.strSourceName = QStringLiteral("S");
    replacement.nNodeData1 = Q_INT64_C(-1);
    replacement.isOnline = true;
    replacement.showOpBtn = QList<bool>{ true, true, true, true };
    replacement.iType = 9;
    replacement.nNodeData2 = Q_INT64_C(0x7FFFFFFFFFFFFFFF);
    replacement.iSignalGroupNo = 2;
    replacement.eInputSourceType = 5;
    replacement.iInputSourceNo = 3;
    model.modifyChildItem(1, 1, replacement);

    const st_NodeInfoSignal &c = model.childNodes().at(1).at(1);
    QCOMPARE(c.strNodeName, QStringList{ QStringLiteral("child") });
    QCOMPARE(c.strSourceName, QStringLiteral("S"));
    QCOMPARE(c.nNodeData1, Q_INT64_C(-1));
    QCOMPARE(c.isOnline, true);
    QCOMPARE(c.showOpBtn, (QList<bool>{ true, true, true, true }));
    QCOMPARE(c.iType, 9);
    QCOMPARE(c.nNodeData2, Q_INT64_C(9223372036854775807));
    QCOMPARE(c.iSignalGroupNo, 2);
    QCOMPARE(c.eInputSourceType, 5);
    QCOMPARE(c.iInputSourceNo, 3);
    // The neighbours are untouched.
    QCOMPARE(model.childNodes().at(1).at(0).nNodeData1, qint64(1010));
    QCOMPARE(model.childNodes().at(1).at(2).nNodeData1, qint64(1012));
}

void tst_TreeListModel::operationsOnEmptyModel()
{
    TreeListModel model(nullptr);
    const QList<QList<int>> paths{ {}, { 0 }, { 1 }, { -1 }, { 0, 0 }, { 1, 1 }, { 0, 0, 0 }, { 1, 2, 3 } };
    for (const QList<int> &path : paths) {
        model.deleteItem(path);
        CHECK_INVARIANT(model);
        model.modifyItemData(path, node(1));
        CHECK_INVARIANT(model);
    }
    for (int index : { INT_MIN, -1, 0, 1, INT_MAX }) {
        model.deleteRootItem(index);
        CHECK_INVARIANT(model);
        model.modifyRootItem(index, node(1));
        CHECK_INVARIANT(model);
        model.modifyChildItem(index, index, node(1));
        CHECK_INVARIANT(model);
        model.setChildItems(index, nodes({ 1 }));
        CHECK_INVARIANT(model);
    }
    QVERIFY(model.rootNodes().isEmpty());
    QVERIFY(model.childNodes().isEmpty());
}

QTEST_MAIN(tst_TreeListModel)
#include "tst_treelistmodel.moc"
