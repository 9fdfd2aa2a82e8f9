// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

// Autotest of DrawerControl: one root row with its container of child rows,
// the selection path, expand and collapse, and drag and drop between drawers.
//
// The drag and drop tests need a platform whose QDrag::exec really runs:
// the "minimal" platform's in-process drag does, "offscreen" returns at once.
// Under minimal a drag is driven like this: a timer armed before the
// gesture fires inside the drag's nested event loop; there it sends mouse
// moves and the release to the target's top-level QWindow with the global
// position set (the drag's application event filter eats them and turns
// them into drag-enter, drag-move and drop events).

#include "BuiltRows.h"
#include "DragDriver.h"
#include "DrawerControl.h"
#include "EventSender.h"
#include "MessageCapture.h"
#include "NodeFactory.h"
#include "RootItem.h"
#include "RowButtons.h"
#include "SecondItem.h"
#include "st_NodeInfoSignal.h"

#include <QApplication>
#include <QCheckBox>
#include <QDrag>
#include <QFont>
#include <QFrame>
#include <QGuiApplication>
#include <QImage>
#include <QLayout>
#include <QLayoutItem>
#include <QMetaMethod>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QPen>
#include <QPixmap>
#include <QPointer>
#include <QSignalSpy>
#include <QSpacerItem>
#include <QTextOption>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>
#include <QWindow>
#include <QtTest>

#include <functional>
#include <limits>
#include <memory>

namespace {

const char *const kPressLook = "press";
const char *const kNormalLook = "normal";

// ---------------------------------------------------------------- records

st_NodeInfoSignal makeNode(const QStringList &names, const QString &source = QString(),
                           int type = 0)
{
    return NodeFactory().node(names, source, type);
}

// Child records "<prefix><first>" ... with a second line and a source name.
QList<st_NodeInfoSignal> childNodes(int count, const QString &prefix = QStringLiteral("Sig"),
                                    int first = 0)
{
    QList<st_NodeInfoSignal> nodes;
    for (int i = first; i < first + count; ++i) {
        st_NodeInfoSignal node = makeNode({prefix + QString::number(i), QStringLiteral("line2")},
                                          QStringLiteral("Source%1").arg(i), i % 19);
        node.iInputSourceNo = 100 + i;
        nodes << node;
    }
    return nodes;
}

bool sameRecord(const st_NodeInfoSignal &a, const st_NodeInfoSignal &b)
{
    return a.strNodeName == b.strNodeName && a.strSourceName == b.strSourceName
        && a.nNodeData1 == b.nNodeData1 && a.isOnline == b.isOnline && a.showOpBtn == b.showOpBtn
        && a.iType == b.iType && a.nNodeData2 == b.nNodeData2
        && a.iSignalGroupNo == b.iSignalGroupNo && a.eInputSourceType == b.eInputSourceType
        && a.iInputSourceNo == b.iInputSourceNo;
}

// Builds a drawer the way the tree container does: root row (item type 1
// for a root record of iType 0, else 0), the root record, then children.
DrawerControl *buildDrawer(QWidget *parent, int rootIndex, const st_NodeInfoSignal &root,
                           const QList<st_NodeInfoSignal> &children)
{
    auto *drawer = new DrawerControl(parent);
    drawer->initRootItem(root.iType == 0 ? 1 : 0, rootIndex);
    drawer->modifyRootItemData(root);
    if (!children.isEmpty())
        drawer->addSecondItems(children);
    return drawer;
}

DrawerControl *buildDrawer(QWidget *parent, int rootIndex, int childCount)
{
    return buildDrawer(parent, rootIndex,
                       makeNode({QStringLiteral("Root%1").arg(rootIndex)}, QString(), 0),
                       childNodes(childCount));
}

// ------------------------------------------------------------ row helpers

QString lookOf(QObject *row)
{
    return row->property("isSecondItem").toString();
}

QStringList looksOf(DrawerControl *drawer)
{
    QStringList looks;
    const auto rows = builtRows(drawer);
    for (SecondItem *row : rows)
        looks << lookOf(row);
    return looks;
}

// Looks with exactly row @p pressed in the press look (none if out of range).
QStringList looksWithPressed(int count, int pressed)
{
    QStringList looks;
    for (int i = 0; i < count; ++i)
        looks << QString::fromLatin1(i == pressed ? kPressLook : kNormalLook);
    return looks;
}

QStringList indexTextsOf(DrawerControl *drawer)
{
    QStringList texts;
    const auto rows = builtRows(drawer);
    for (SecondItem *row : rows)
        texts << row->getIndexText();
    return texts;
}

using RowButtons::rootButton;
using RowButtons::rowButtons;

// ----------------------------------------------------------- mouse helpers

// Sends one mouse event to the deepest widget of @p top under @p topPos
// (or to @p top itself), as the window would; ignored events propagate to
// the parents.
void sendMouseAt(QWidget *top, QEvent::Type type, const QPoint &topPos, Qt::MouseButton button,
                 Qt::MouseButtons buttons)
{
    QWidget *target = top->childAt(topPos);
    if (!target)
        target = top;
    const QPoint local = target->mapFrom(top, topPos);
    const QPoint windowPos = target->mapTo(target->window(), local);
    QMouseEvent event(type, local, windowPos, top->mapToGlobal(topPos), button, buttons,
                      Qt::NoModifier);
    QCoreApplication::sendEvent(target, &event);
}

void pressWidget(QWidget *widget)
{
    const QPoint pos = widget->rect().center();
    QMouseEvent event(QEvent::MouseButtonPress, pos, widget->mapTo(widget->window(), pos),
                      widget->mapToGlobal(pos), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(widget, &event);
}

void sendToWidget(QWidget *widget, QEvent::Type type, const QPoint &pos, Qt::MouseButton button,
                  Qt::MouseButtons buttons)
{
    QMouseEvent event(type, pos, widget->mapTo(widget->window(), pos), widget->mapToGlobal(pos),
                      button, buttons, Qt::NoModifier);
    QCoreApplication::sendEvent(widget, &event);
}

// ----------------------------------------------------------------- layouts

// One entry per item of the layout: nullptr for a spacing, else the widget.
QList<QObject *> layoutEntries(QLayout *layout, QList<int> *spacingHeights)
{
    QList<QObject *> entries;
    for (int i = 0; i < layout->count(); ++i) {
        QLayoutItem *item = layout->itemAt(i);
        if (QSpacerItem *spacer = item->spacerItem()) {
            entries << nullptr;
            spacingHeights->append(spacer->sizeHint().height());
        } else {
            entries << item->widget();
        }
    }
    return entries;
}

// ---------------------------------------------------------------- messages

// The drawer's own trace lines among the messages @p log collected.
QStringList drawerLines(const MessageCapture &log)
{
    return log.linesStartingWith(QStringLiteral("[Tarn]::DrawerControl::"));
}

// ------------------------------------------------------- look change spy

// Records, application-wide, every change of a row's "isSecondItem" look.
class LookRecorder : public QObject
{
public:
    struct Change
    {
        QObject *row;
        QString look;
    };
    QVector<Change> changes;

    QStringList looksOf(QObject *row) const
    {
        QStringList result;
        for (const Change &c : changes) {
            if (c.row == row)
                result << c.look;
        }
        return result;
    }
    int firstIndexOf(QObject *row, const QString &look) const
    {
        for (int i = 0; i < changes.size(); ++i) {
            if (changes.at(i).row == row && changes.at(i).look == look)
                return i;
        }
        return -1;
    }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::DynamicPropertyChange
            && static_cast<QDynamicPropertyChangeEvent *>(event)->propertyName()
                   == "isSecondItem")
            changes.append({watched, watched->property("isSecondItem").toString()});
        return false;
    }
};

// ---------------------------------------------------------- drag helpers

bool realDragAvailable()
{
    return QGuiApplication::platformName() == QLatin1String("minimal");
}

// Two drawers stacked in one shown top-level window, both with dragging
// enabled and expanded: the source (root index 3) above the target (root
// index 5), three child rows each.
struct DndScene
{
    std::unique_ptr<QWidget> window;
    QPointer<DrawerControl> src;
    QPointer<DrawerControl> dst;

    explicit DndScene(const QList<st_NodeInfoSignal> &srcChildren = childNodes(3, QStringLiteral("Src")),
                      const QList<st_NodeInfoSignal> &dstChildren = childNodes(3, QStringLiteral("Dst")))
        : window(new QWidget)
    {
        auto *layout = new QVBoxLayout(window.get());
        layout->setContentsMargins(0, 0, 0, 0);
        layout->setSpacing(0);
        src = buildDrawer(window.get(), 3, makeNode({QStringLiteral("SourceRoot")}, QString(), 1),
                          srcChildren);
        dst = buildDrawer(window.get(), 5, makeNode({QStringLiteral("TargetRoot")}, QString(), 1),
                          dstChildren);
        for (DrawerControl *drawer : {src.data(), dst.data()}) {
            drawer->setIsDrag(true);
            drawer->setIsShowChildItem(true);
            layout->addWidget(drawer);
        }
        layout->addStretch(1);
        window->setGeometry(40, 40, 360, 480);
        window->show();
    }

    bool ready() { return QTest::qWaitForWindowExposed(window.get(), 10000); }

    QWindow *windowHandle() const { return window->windowHandle(); }
};

// A point of @p drawer (drawer coordinates) in the middle of child row @p i.
QPoint rowCentre(DrawerControl *drawer, int i)
{
    SecondItem *row = builtRows(drawer).at(i);
    return row->mapTo(drawer, row->rect().center());
}

QPoint rootCentre(DrawerControl *drawer)
{
    return drawer->rootItem()->mapTo(drawer, drawer->rootItem()->rect().center());
}

// The drawer-coordinate rectangle of every child row.
QList<QRect> rowRects(DrawerControl *drawer)
{
    QList<QRect> rects;
    const auto rows = builtRows(drawer);
    for (SecondItem *row : rows)
        rects << QRect(row->mapTo(drawer, QPoint(0, 0)), row->size());
    return rects;
}

bool onAnyRow(DrawerControl *drawer, const QPoint &p)
{
    const auto rects = rowRects(drawer);
    for (const QRect &r : rects) {
        if (r.contains(p))
            return true;
    }
    return false;
}

// A point between child rows @p i and @p i + 1, left part of the rows.
QPoint gapBelowRow(DrawerControl *drawer, int i)
{
    const QList<QRect> rects = rowRects(drawer);
    const int y = (rects.at(i).bottom() + rects.at(i + 1).top()) / 2 + 1;
    return QPoint(rects.at(i).left() + 20, y);
}

// A point in the container's left margin, beside child row @p i.
QPoint marginBesideRow(DrawerControl *drawer, int i)
{
    const QPoint centre = rowCentre(drawer, i);
    const int containerLeft = drawer->childContainer()->mapTo(drawer, QPoint(0, 0)).x();
    return QPoint(containerLeft + 12, centre.y());
}

using DragDriver::moveAndRelease;

// Ends a running drag with a release far away from every window (no drop).
void releaseNowhere(QWindow *window)
{
    moveAndRelease(window, QPoint(-5000, -5000));
}

struct DragOutcome
{
    bool started = false;          // the armed timer ran inside a drag loop
    bool draggingInside = false;   // isDragging() while the drag ran
    QPointer<QDrag> drag;          // the drag object (a child of the source)
    QObject *dragParent = nullptr;
    QString text;
    QImage image;
    qreal ratio = 0; // the drag picture's device pixel ratio
    QPoint hotSpot;
    Qt::DropActions actions;
};

// Presses at @p pressPos and moves (left button held) to @p movePos, both in
// @p source's coordinates and delivered to the widget under the point. A
// timer armed before the gesture records the drag if one runs and then
// calls @p inDrag, which must end the drag with a release.
DragOutcome dragGesture(DrawerControl *source, const QPoint &pressPos, const QPoint &movePos,
                        const std::function<void(DragOutcome &)> &inDrag)
{
    DragOutcome out;
    QObject guard; // dropping it cancels the timer when no drag ran
    QTimer::singleShot(0, &guard, [&] {
        out.started = true;
        out.draggingInside = source->isDragging();
        out.drag = source->findChild<QDrag *>();
        if (out.drag) {
            out.dragParent = out.drag->parent();
            out.text = out.drag->mimeData() ? out.drag->mimeData()->text() : QString();
            out.image = out.drag->pixmap().toImage();
            out.ratio = out.drag->pixmap().devicePixelRatio();
            out.hotSpot = out.drag->hotSpot();
            out.actions = out.drag->supportedActions();
        }
        inDrag(out);
    });
    sendMouseAt(source, QEvent::MouseButtonPress, pressPos, Qt::LeftButton, Qt::LeftButton);
    sendMouseAt(source, QEvent::MouseMove, movePos, Qt::NoButton, Qt::LeftButton);
    return out;
}

// A drag from @p source that carries @p text and a 10 x 10 black picture,
// not started yet.
QDrag *textDrag(QObject *source, const QString &text)
{
    auto *drag = new QDrag(source);
    auto *mime = new QMimeData;
    mime->setText(text);
    drag->setMimeData(mime);
    QPixmap pm(10, 10);
    pm.fill(Qt::black);
    drag->setPixmap(pm);
    return drag;
}

// Runs @p drag as a move and releases it at @p global over @p window from a
// timer armed before the drag starts; *ran tells whether that timer fired.
Qt::DropAction execReleasedAt(QDrag *drag, QWindow *window, const QPoint &global, bool *ran)
{
    QObject guard; // dropping it cancels the timer when no drag ran
    QTimer::singleShot(0, &guard, [&] {
        *ran = true;
        moveAndRelease(window, global);
    });
    return drag->exec(Qt::MoveAction);
}

// The drag picture as the drawer is to paint it, built here independently:
// at a screen ratio above 1 the picture is drawn scaled into a pixmap of that
// ratio and the caption painted over it.
QImage expectedDragImage(const QString &caption, qreal ratio = 1.0)
{
    QPixmap picture(QStringLiteral(":/rootitem/resource/rootitem/rootitem_drag_tip_new.png"));
    if (ratio > 1.0) {
        QPixmap sharp(picture.size() * ratio);
        sharp.setDevicePixelRatio(ratio);
        sharp.fill(Qt::transparent);
        QPainter scaler(&sharp);
        scaler.setRenderHint(QPainter::SmoothPixmapTransform);
        scaler.drawPixmap(QRectF(0, 0, picture.width(), picture.height()), picture, QRectF(picture.rect()));
        scaler.end();
        picture = sharp;
    }
    QPainter painter(&picture);
    painter.setFont(QFont(QStringLiteral("Arial"), 9, QFont::Normal, false)); // weight 50 on Qt 5
    painter.setPen(QPen(QBrush(Qt::white, Qt::SolidPattern), 1.0, Qt::SolidLine, Qt::SquareCap,
                        Qt::BevelJoin));
    painter.drawText(QRectF(25.0, 7.0, 100.0, 18.0), caption, QTextOption());
    painter.end();
    return picture.toImage();
}

QList<int> intsOf(const QVariant &v)
{
    return v.value<QList<int>>();
}

} // namespace

class TestDrawerControl : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();

    // construction and class shape
    void constructionState();
    void metaObjectMethods_data();
    void metaObjectMethods();
    void metaObjectShape();
    void initRootItemBuildsDrawer_data();
    void initRootItemBuildsDrawer();
    void containerVisibleUntilFirstExpandState();

    // child rows
    void addSecondItemsLayoutRule_data();
    void addSecondItemsLayoutRule();
    void addSecondItemsEmptyListReappliesExpandedState();
    void addSecondItemsRecordsAndIndices();
    void addSecondItemsSelectionLook_data();
    void addSecondItemsSelectionLook();
    void addSecondItemsToolTip_data();
    void addSecondItemsToolTip();
    void modifySecondItemDataToolTip_data();
    void modifySecondItemDataToolTip();
    void addSecondItemSingle();
    void deleteSecondItemKeepsIndices();
    void outOfRangeIndicesDoNothing_data();
    void outOfRangeIndicesDoNothing();
    void setRootIndexRenumbers_data();
    void setRootIndexRenumbers();

    // selection and signals
    void clickChildRowReportsPath_data();
    void clickChildRowReportsPath();
    void clickRootRowReportsNothing();
    void buttonSlotsReportCurrentPath_data();
    void buttonSlotsReportCurrentPath();
    void childButtonsReportAfterClick_data();
    void childButtonsReportAfterClick();
    void setCurSelSecondItem_data();
    void setCurSelSecondItem();
    void markSelSecondItemHonoursLock_data();
    void markSelSecondItemHonoursLock();

    // expand and collapse, pass-throughs
    void doubleClickTogglesExpand_data();
    void doubleClickTogglesExpand();
    void passThroughs();
    void uninitialisedDrawerIgnoresRootCalls();
    void setIsDragDrivesAcceptDrops();

    // lifetime
    void destructorTrace();
    void releaseSelfWithoutDrag();

    // drag and drop (minimal platform)
    void dragThreshold_data();
    void dragThreshold();
    void dragStartsOnlyOverChildRow_data();
    void dragStartsOnlyOverChildRow();
    void noDragWhileRootSelected();
    void noDragWhenDraggingDisabled();
    void dragObject();
    void dropReportsPaths_data();
    void dropReportsPaths();
    void dropOnStartingDrawerIgnored_data();
    void dropOnStartingDrawerIgnored();
    void dropFromForeignSourceIgnored();
    void dropDecodesText_data();
    void dropDecodesText();
    void dragTextCarriesCurrentChildIndex();
    void dragCaption_data();
    void dragCaption();
    void namelessSelectionWritesTrace();
    void releaseSelfDuringDrag_data();
    void releaseSelfDuringDrag();
};

void TestDrawerControl::initTestCase()
{
    EventSender::parkPointer();
    qRegisterMetaType<QList<int>>();
}

void TestDrawerControl::cleanup()
{
    // Rows, drags and drawers deleted later must not leak into the next test.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
}

// ------------------------------------------------------------------------
// construction and class shape

void TestDrawerControl::constructionState()
{
    QWidget host;
    auto *drawer = new DrawerControl(&host);

    QCOMPARE(drawer->parentWidget(), &host);
    QCOMPARE(drawer->rootItem(), nullptr);                   // m_pRootItem
    QVERIFY(builtRows(drawer).isEmpty());                // m_lstSecondItem
    QCOMPARE(drawer->getIsRootAsChild(), false);             // m_bIsRootAsChild
    QCOMPARE(drawer->getIsRootSel(), true);                  // m_bIsRootSel
    QCOMPARE(drawer->getIsNotRootSel(), false);
    QCOMPARE(drawer->getSpareFlag(), false);                 // m_bSpareFlag
    QVERIFY(sameRecord(drawer->selNodeInfo(), st_NodeInfoSignal())); // m_stSelNodeInfo
    QVERIFY(drawer->getSecondNodeInfos().isEmpty());         // m_lstSecondNodeInfo
    QCOMPARE(drawer->rootIndex(), -1);                       // m_iRootIndex
    QCOMPARE(drawer->curSecondIndex(), -1);                  // m_iCurSecondIndex
    QCOMPARE(drawer->acceptDrops(), false);                  // setIsDrag(false)
    QCOMPARE(drawer->isShowChild(), false);                  // m_bIsShowChild
    QCOMPARE(drawer->layout(), nullptr);                     // m_pMainLayout
    QCOMPARE(drawer->childLayout(), nullptr);                // m_pChildLayout
    QCOMPARE(drawer->childContainer(), nullptr);             // m_pContainer
    QVERIFY(drawer->selIndex().isEmpty());                   // m_lstSelIndex
    QCOMPARE(drawer->isDragging(), false);                   // m_pDrag
    QCOMPARE(drawer->findChild<QDrag *>(), nullptr);
    QVERIFY(drawer->findChildren<QWidget *>().isEmpty());    // no child widgets yet
    QVERIFY(drawer->objectName().isEmpty());
    QVERIFY(drawer->styleSheet().isEmpty());

    // m_bIsLockSel starts false: once rows exist, marking works.
    drawer->initRootItem(1, 0);
    drawer->addSecondItems(childNodes(3));
    drawer->markSelSecondItem(0);
    QCOMPARE(looksOf(drawer), looksWithPressed(3, 0));
}

void TestDrawerControl::metaObjectMethods_data()
{
    QTest::addColumn<int>("position");
    QTest::addColumn<QByteArray>("signature");
    QTest::addColumn<int>("methodType");
    QTest::addColumn<int>("access");

    const int sig = QMetaMethod::Signal;
    const int slot = QMetaMethod::Slot;
    const int pub = QMetaMethod::Public;
    const int priv = QMetaMethod::Private;
    const QList<QByteArray> signatures = {
        "signal_OnCurrentItemClicked(QList<int>)",
        "signal_OnItemsIsDraged(QList<int>,QList<int>)",
        "signal_OnCompleteDraged()",
        "signal_OnItemIsDoubleClicked(bool)",
        "signal_OnEditBtnClicked(QList<int>)",
        "signal_OnDeleteBtnClicked(QList<int>)",
        "signal_OnCaptureBtnClicked(QList<int>)",
        "slot_OnRootItemClicked()",
        "slot_OnSecondItemClicked()",
        "slot_OnSecondItemCaptureBtnClicked()",
        "slot_OnIsShowChildItems(bool)",
        "slot_OnEditBtnClicked()",
        "slot_OnDeleteBtnClicked()",
        "slot_releaseDrag()",
    };
    for (int i = 0; i < signatures.size(); ++i) {
        QTest::newRow(signatures.at(i).constData())
            << i << signatures.at(i) << (i < 7 ? sig : slot) << (i < 7 ? pub : priv);
    }
}

void TestDrawerControl::metaObjectMethods()
{
    QFETCH(int, position);
    QFETCH(QByteArray, signature);
    QFETCH(int, methodType);
    QFETCH(int, access);

    const QMetaObject &mo = DrawerControl::staticMetaObject;
    const QMetaMethod method = mo.method(mo.methodOffset() + position);
    QVERIFY(method.isValid());
    QCOMPARE(method.methodSignature(), signature);
    QCOMPARE(int(method.methodType()), methodType);
    QCOMPARE(int(method.access()), access);
}

void TestDrawerControl::metaObjectShape()
{
    const QMetaObject &mo = DrawerControl::staticMetaObject;
    QCOMPARE(QByteArray(mo.className()), QByteArray("DrawerControl"));
    QVERIFY(mo.superClass());
    QCOMPARE(QByteArray(mo.superClass()->className()), QByteArray("CLanguageTranslateFrame"));
    QCOMPARE(mo.methodCount() - mo.methodOffset(), 14);
}

void TestDrawerControl::initRootItemBuildsDrawer_data()
{
    QTest::addColumn<int>("itemType");
    QTest::addColumn<int>("rootIndex");
    QTest::addColumn<bool>("dragEnabled");

    QTest::newRow("type 1, root 0") << 1 << 0 << false;
    QTest::newRow("type 0, root 7") << 0 << 7 << false;
    QTest::newRow("type 1, root 12, drag on") << 1 << 12 << true;
}

void TestDrawerControl::initRootItemBuildsDrawer()
{
    QFETCH(int, itemType);
    QFETCH(int, rootIndex);
    QFETCH(bool, dragEnabled);

    DrawerControl drawer;
    drawer.setIsDrag(dragEnabled);
    drawer.initRootItem(itemType, rootIndex);

    QCOMPARE(drawer.rootIndex(), rootIndex);
    RootItem *root = drawer.rootItem();
    QVERIFY(root);
    QCOMPARE(root->parentWidget(), &drawer);
    QCOMPARE(root->getItemType(), itemType);
    QCOMPARE(root->getIndexText(), QString::number(rootIndex));

    auto *mainLayout = qobject_cast<QVBoxLayout *>(drawer.layout());
    QVERIFY(mainLayout);
    QCOMPARE(mainLayout->spacing(), 0);
    QCOMPARE(mainLayout->contentsMargins(), QMargins(10, 0, 10, 0));
    QCOMPARE(mainLayout->count(), 2);
    QCOMPARE(mainLayout->itemAt(0)->widget(), static_cast<QWidget *>(root));

    QFrame *container = drawer.childContainer();
    QVERIFY(container);
    QCOMPARE(mainLayout->itemAt(1)->widget(), static_cast<QWidget *>(container));
    QCOMPARE(container->parentWidget(), &drawer);
    QCOMPARE(container->objectName(), QStringLiteral("DrawerContainer"));
    QVERIFY(!container->isWindow());
    QCOMPARE(container->windowType(), Qt::Widget);
    QCOMPARE(container->acceptDrops(), true); // whatever dragging says
    QCOMPARE(drawer.acceptDrops(), dragEnabled);

    QVBoxLayout *childLayout = drawer.childLayout();
    QVERIFY(childLayout);
    QCOMPARE(childLayout->parentWidget(), static_cast<QWidget *>(container));
    QCOMPARE(container->layout(), static_cast<QLayout *>(childLayout));
    QCOMPARE(childLayout->spacing(), 8);
    QCOMPARE(childLayout->contentsMargins(), QMargins(24, 0, 0, 0));
    QCOMPARE(childLayout->count(), 0);

    // The drawer names and styles nothing of its own.
    QVERIFY(drawer.objectName().isEmpty());
    QVERIFY(drawer.styleSheet().isEmpty());
    QVERIFY(container->styleSheet().isEmpty());
    QVERIFY(builtRows(&drawer).isEmpty());
    QVERIFY(drawer.selIndex().isEmpty());
}

void TestDrawerControl::containerVisibleUntilFirstExpandState()
{
    DrawerControl drawer;
    drawer.initRootItem(1, 0);
    QCOMPARE(drawer.isShowChild(), false);
    QVERIFY(!drawer.childContainer()->isHidden()); // not yet told to collapse

    drawer.addSecondItems({}); // re-applies the (collapsed) state
    QVERIFY(drawer.childContainer()->isHidden());
}

// ------------------------------------------------------------------------
// child rows

void TestDrawerControl::addSecondItemsLayoutRule_data()
{
    QTest::addColumn<QList<int>>("batches");
    // Number of spacings after each call, worked out by hand from the loop
    // "i from 0 while i < count: remove the last item" (which keeps the first
    // floor(count/2) items), one added spacing, then every row re-added.
    QTest::addColumn<QList<int>>("spacings");

    QTest::newRow("one empty call") << QList<int>{0} << QList<int>{1};
    QTest::newRow("three empty calls") << QList<int>{0, 0, 0} << QList<int>{1, 1, 1};
    QTest::newRow("three rows, then two empty calls") << QList<int>{3, 0, 0} << QList<int>{1, 2, 3};
    QTest::newRow("two rows, then one row") << QList<int>{2, 1} << QList<int>{1, 2};
    QTest::newRow("one row, then empty twice") << QList<int>{1, 0, 0} << QList<int>{1, 2, 2};
    QTest::newRow("3, 0, 0, 0") << QList<int>{3, 0, 0, 0} << QList<int>{1, 2, 3, 4};
    QTest::newRow("5, 5, 0") << QList<int>{5, 5, 0} << QList<int>{1, 2, 3};
    QTest::newRow("empty first, then rows") << QList<int>{0, 2, 4, 0} << QList<int>{1, 1, 2, 3};
}

void TestDrawerControl::addSecondItemsLayoutRule()
{
    QFETCH(QList<int>, batches);
    QFETCH(QList<int>, spacings);

    DrawerControl drawer;
    drawer.initRootItem(1, 2);
    QVBoxLayout *layout = drawer.childLayout();

    QList<QObject *> model; // expected items: nullptr = spacing
    int made = 0;
    for (int call = 0; call < batches.size(); ++call) {
        drawer.addSecondItems(childNodes(batches.at(call), QStringLiteral("N"), made));
        made += batches.at(call);

        const QList<SecondItem *> rows = builtRows(&drawer);
        QCOMPARE(rows.size(), made);

        // The rule, applied to the model.
        for (int i = 0; i < model.size(); ++i)
            model.removeLast();
        model.append(nullptr);
        for (SecondItem *row : rows) {
            model.removeAll(row); // a re-added widget leaves its old place
            model.append(row);
        }

        QList<int> heights;
        const QList<QObject *> actual = layoutEntries(layout, &heights);
        QCOMPARE(actual, model);
        QCOMPARE(heights.size(), spacings.at(call));
        for (int h : heights)
            QCOMPARE(h, 8);
        // Every row sits in the layout exactly once, in list order, after
        // the last spacing.
        const int lastSpacing = actual.lastIndexOf(nullptr);
        QCOMPARE(actual.size() - 1 - lastSpacing, made);
    }
}

void TestDrawerControl::addSecondItemsEmptyListReappliesExpandedState()
{
    DrawerControl drawer;
    drawer.initRootItem(1, 0);
    drawer.addSecondItems(childNodes(2));
    QVERIFY(drawer.childContainer()->isHidden()); // collapsed state applied

    drawer.setIsShowChildItem(true);
    QCOMPARE(drawer.isShowChild(), true);
    QVERIFY(!drawer.childContainer()->isHidden());

    // Hide the container behind the drawer's back: an empty batch shows it
    // again because it re-applies the expanded state.
    drawer.childContainer()->hide();
    drawer.addSecondItems({});
    QVERIFY(!drawer.childContainer()->isHidden());
    QCOMPARE(drawer.isShowChild(), true);
    QCOMPARE(builtRows(&drawer).size(), 2);

    drawer.setIsShowChildItem(false);
    drawer.childContainer()->show();
    drawer.addSecondItems({});
    QVERIFY(drawer.childContainer()->isHidden());
    QCOMPARE(drawer.isShowChild(), false);
}

void TestDrawerControl::addSecondItemsRecordsAndIndices()
{
    DrawerControl drawer;
    drawer.initRootItem(1, 4);
    const QList<st_NodeInfoSignal> first = childNodes(2, QStringLiteral("A"));
    const QList<st_NodeInfoSignal> second = childNodes(3, QStringLiteral("B"));

    drawer.addSecondItems(first);
    drawer.addSecondItems(second);

    const QList<st_NodeInfoSignal> all = first + second;
    const QList<st_NodeInfoSignal> kept = drawer.getSecondNodeInfos();
    QCOMPARE(kept.size(), all.size());
    for (int i = 0; i < all.size(); ++i) {
        QVERIFY2(sameRecord(kept.at(i), all.at(i)), qPrintable(QString::number(i)));
        st_NodeInfoSignal out;
        QCOMPARE(drawer.getSecondNodeInfo(i, out), 1);
        QVERIFY(sameRecord(out, all.at(i)));
        QCOMPARE(builtRows(&drawer).at(i)->parentWidget(),
                 static_cast<QWidget *>(drawer.childContainer()));
    }
    // Child indices continue from the number of records already kept.
    QCOMPARE(indexTextsOf(&drawer),
             QStringList({"4-0", "4-1", "4-2", "4-3", "4-4"}));
    // Adding rows changes neither the selection path nor the current index.
    QVERIFY(drawer.selIndex().isEmpty());
    QCOMPARE(drawer.curSecondIndex(), -1);
    QCOMPARE(drawer.getIsRootSel(), true);
}

void TestDrawerControl::addSecondItemsSelectionLook_data()
{
    QTest::addColumn<int>("existing");
    QTest::addColumn<int>("batch");
    QTest::addColumn<bool>("locked");

    QTest::newRow("fresh, three rows") << 0 << 3 << false;
    QTest::newRow("fresh, one row") << 0 << 1 << false;
    QTest::newRow("two old, three new") << 2 << 3 << false;
    QTest::newRow("two old, empty batch") << 2 << 0 << false;
    QTest::newRow("locked, fresh, three rows") << 0 << 3 << true;
    QTest::newRow("locked, two old, three new") << 2 << 3 << true;
    QTest::newRow("locked, two old, one new") << 2 << 1 << true;
}

void TestDrawerControl::addSecondItemsSelectionLook()
{
    QFETCH(int, existing);
    QFETCH(int, batch);
    QFETCH(bool, locked);

    DrawerControl drawer;
    drawer.initRootItem(1, 1);
    if (existing > 0)
        drawer.addSecondItems(childNodes(existing, QStringLiteral("Old")));

    QList<bool> expected; // pressed state per row, by the rule
    for (SecondItem *row : builtRows(&drawer))
        expected << (lookOf(row) == QLatin1String(kPressLook));
    for (int j = 0; j < batch; ++j)
        expected << (j == 0); // first of the batch pressed, the rest not
    if (!locked && !expected.isEmpty()) {
        for (int i = 0; i < expected.size(); ++i)
            expected[i] = (i == expected.size() - 1);
    }

    drawer.setIsLockSel(locked);
    LookRecorder recorder;
    qApp->installEventFilter(&recorder);
    drawer.addSecondItems(childNodes(batch, QStringLiteral("New")));
    qApp->removeEventFilter(&recorder);

    const QList<SecondItem *> rows = builtRows(&drawer);
    QCOMPARE(rows.size(), existing + batch);
    QList<bool> actual;
    for (SecondItem *row : rows)
        actual << (lookOf(row) == QLatin1String(kPressLook));
    QCOMPARE(actual, expected);

    if (batch == 0)
        return;
    SecondItem *firstNew = rows.at(existing);
    SecondItem *last = rows.last();
    const int firstPress = recorder.firstIndexOf(firstNew, QLatin1String(kPressLook));
    QVERIFY2(firstPress >= 0, "the first row of the batch never got the selected look");
    for (int j = 1; j < batch; ++j) {
        SecondItem *row = rows.at(existing + j);
        if (row != last || locked)
            QVERIFY(!recorder.looksOf(row).contains(QLatin1String(kPressLook)));
    }
    if (!locked && firstNew != last) {
        // Pressed first, turned off by the final marking of the last row.
        const QStringList firstLooks = recorder.looksOf(firstNew);
        QCOMPARE(firstLooks.last(), QString::fromLatin1(kNormalLook));
        QVERIFY(firstLooks.indexOf(QLatin1String(kPressLook))
                < firstLooks.lastIndexOf(QLatin1String(kNormalLook)));
        QVERIFY(firstPress < recorder.firstIndexOf(last, QLatin1String(kPressLook)));
    }
}

void TestDrawerControl::addSecondItemsToolTip_data()
{
    QTest::addColumn<int>("rootType");
    QTest::addColumn<QString>("expectedTip");

    // Root record: name "GroupName"; child record: name "Child", source "ChildSource".
    QTest::newRow("group root shows the group name") << 1 << QStringLiteral("GroupName");
    QTest::newRow("plain root shows the row's source") << 0 << QStringLiteral("ChildSource");
    QTest::newRow("type 2 root sets no tip") << 2 << QString();
    QTest::newRow("type -1 root sets no tip") << -1 << QString();
}

void TestDrawerControl::addSecondItemsToolTip()
{
    QFETCH(int, rootType);
    QFETCH(QString, expectedTip);

    QScopedPointer<DrawerControl> drawer(
        buildDrawer(nullptr, 0, makeNode({QStringLiteral("GroupName"), QStringLiteral("lower")},
                                         QStringLiteral("RootSource"), rootType),
                    {makeNode({QStringLiteral("Child")}, QStringLiteral("ChildSource"), 1),
                     makeNode({QStringLiteral("Child2")}, QStringLiteral("ChildSource"), 2)}));
    const auto rows = builtRows(drawer);
    QCOMPARE(rows.size(), 2);
    for (SecondItem *row : rows)
        QCOMPARE(row->toolTip(), expectedTip);
}

void TestDrawerControl::modifySecondItemDataToolTip_data()
{
    QTest::addColumn<int>("rootType");
    QTest::addColumn<QStringList>("newNames");
    QTest::addColumn<QString>("expectedTip");

    // The row starts with the name "OldName"; the new record's source is "NewSource".
    QTest::newRow("plain root: tip shows the full upper text")
        << 0 << QStringList{"NewName", "lower"} << QStringLiteral("NewName");
    const QString longName = QString(60, QLatin1Char('W'));
    QTest::newRow("plain root: long name is the full text")
        << 0 << QStringList{longName} << longName;
    QTest::newRow("plain root: nameless record keeps the old upper text")
        << 0 << QStringList{} << QStringLiteral("OldName");
    QTest::newRow("group root: tip shows the new source")
        << 1 << QStringList{"NewName"} << QStringLiteral("NewSource");
    QTest::newRow("type 3 root: tip shows the new source")
        << 3 << QStringList{"NewName"} << QStringLiteral("NewSource");
}

void TestDrawerControl::modifySecondItemDataToolTip()
{
    QFETCH(int, rootType);
    QFETCH(QStringList, newNames);
    QFETCH(QString, expectedTip);

    const st_NodeInfoSignal oldRecord =
        makeNode({QStringLiteral("OldName")}, QStringLiteral("OldSource"), 4);
    QScopedPointer<DrawerControl> drawer(
        buildDrawer(nullptr, 0, makeNode({QStringLiteral("Root")}, QString(), rootType),
                    {makeNode({QStringLiteral("Other")}, QStringLiteral("OtherSource"), 1),
                     oldRecord}));

    st_NodeInfoSignal newRecord = makeNode(newNames, QStringLiteral("NewSource"), 7);
    newRecord.iInputSourceNo = 42;
    drawer->modifySecondItemData(1, newRecord);

    QCOMPARE(builtRows(drawer).at(1)->toolTip(), expectedTip);
    // The row reports the new record; the kept records are not touched.
    st_NodeInfoSignal out;
    QCOMPARE(drawer->getSecondNodeInfo(1, out), 1);
    QVERIFY(sameRecord(out, newRecord));
    QVERIFY(sameRecord(drawer->getSecondNodeInfos().at(1), oldRecord));
    // The other row is left alone.
    QVERIFY(sameRecord(builtRows(drawer).at(0)->getNodeInfo(),
                       makeNode({QStringLiteral("Other")}, QStringLiteral("OtherSource"), 1)));
}

void TestDrawerControl::addSecondItemSingle()
{
    QScopedPointer<DrawerControl> drawer(buildDrawer(nullptr, 6, 2));
    drawer->setIsShowChildItem(false);
    builtRows(drawer); // the layout is inspected below
    QSignalSpy clicked(drawer.data(), &DrawerControl::signal_OnCurrentItemClicked);
    const int layoutCountBefore = drawer->childLayout()->count();
    const QList<int> selBefore = drawer->selIndex();

    const st_NodeInfoSignal node = makeNode({QStringLiteral("Single")}, QStringLiteral("S"), 3);
    drawer->addSecondItem(node, 9, 4); // indices taken as given

    const QList<SecondItem *> rows = builtRows(drawer);
    QCOMPARE(rows.size(), 3);
    SecondItem *added = rows.last();
    QCOMPARE(added->parentWidget(), static_cast<QWidget *>(drawer->childContainer()));
    QCOMPARE(added->getIndexText(), QStringLiteral("9-4"));
    QVERIFY(sameRecord(added->getNodeInfo(), node));
    QVERIFY(added->toolTip().isEmpty());
    // One layout item more, no spacing.
    QCOMPARE(drawer->childLayout()->count(), layoutCountBefore + 1);
    QCOMPARE(drawer->childLayout()->itemAt(layoutCountBefore)->widget(),
             static_cast<QWidget *>(added));
    QCOMPARE(looksOf(drawer.data()), looksWithPressed(3, 2));
    QCOMPARE(drawer->curSecondIndex(), 2);
    // Records, path and selected record untouched; nothing emitted.
    QCOMPARE(drawer->getSecondNodeInfos().size(), 2);
    QCOMPARE(drawer->selIndex(), selBefore);
    QCOMPARE(drawer->getIsRootSel(), true);
    QCOMPARE(clicked.count(), 0);

    // Its click is connected.
    pressWidget(added);
    QCOMPARE(clicked.count(), 1);
    QCOMPARE(intsOf(clicked.at(0).at(0)), QList<int>({6, 2}));

    // With the selection locked the looks stay, the index still moves.
    drawer->setIsLockSel(true);
    drawer->addSecondItem(node, 6, 3);
    QCOMPARE(looksOf(drawer.data()), looksWithPressed(4, 2));
    QCOMPARE(drawer->curSecondIndex(), 3);
}

void TestDrawerControl::deleteSecondItemKeepsIndices()
{
    QScopedPointer<DrawerControl> drawer(buildDrawer(nullptr, 2, 4));
    const QList<st_NodeInfoSignal> records = drawer->getSecondNodeInfos();
    QCOMPARE(records.size(), 4);

    pressWidget(builtRows(drawer).at(3)); // select the last row
    QCOMPARE(drawer->selIndex(), QList<int>({2, 3}));
    const int layoutCount = drawer->childLayout()->count();

    QPointer<SecondItem> doomed = builtRows(drawer).at(1);
    drawer->deleteSecondItem(1);

    QVERIFY(doomed.isNull()); // deleted at once, not later
    QCOMPARE(builtRows(drawer).size(), 3);
    QCOMPARE(drawer->childLayout()->count(), layoutCount - 1);
    // No renumbering: the rows behind keep their old child indices.
    QCOMPARE(indexTextsOf(drawer.data()), QStringList({"2-0", "2-2", "2-3"}));
    // The deleted row's record stays kept.
    QCOMPARE(drawer->getSecondNodeInfos().size(), 4);
    QVERIFY(sameRecord(drawer->getSecondNodeInfos().at(1), records.at(1)));
    // Position 1 now reports the former row 2.
    st_NodeInfoSignal out;
    QCOMPARE(drawer->getSecondNodeInfo(1, out), 1);
    QVERIFY(sameRecord(out, records.at(2)));
    // Selection and current index untouched.
    QCOMPARE(drawer->selIndex(), QList<int>({2, 3}));
    QCOMPARE(drawer->curSecondIndex(), 3);
    QCOMPARE(drawer->getIsRootSel(), false);

    // New rows continue from the number of kept records, not of rows.
    drawer->addSecondItems(childNodes(1, QStringLiteral("Late")));
    QCOMPARE(indexTextsOf(drawer.data()), QStringList({"2-0", "2-2", "2-3", "2-4"}));

    // setRootIndex renumbers by position.
    drawer->setRootIndex(2);
    QCOMPARE(indexTextsOf(drawer.data()), QStringList({"2-0", "2-1", "2-2", "2-3"}));
}

void TestDrawerControl::outOfRangeIndicesDoNothing_data()
{
    QTest::addColumn<int>("index");
    QTest::newRow("-1") << -1;
    QTest::newRow("size") << 3;
    QTest::newRow("size + 5") << 8;
    QTest::newRow("INT_MIN") << std::numeric_limits<int>::min();
    QTest::newRow("INT_MAX") << std::numeric_limits<int>::max();
}

void TestDrawerControl::outOfRangeIndicesDoNothing()
{
    QFETCH(int, index);

    QScopedPointer<DrawerControl> drawer(buildDrawer(nullptr, 1, 3));
    const QList<SecondItem *> rowsBefore = builtRows(drawer);
    QStringList tipsBefore;
    QList<st_NodeInfoSignal> recordsBefore;
    for (SecondItem *row : rowsBefore) {
        tipsBefore << row->toolTip();
        recordsBefore << row->getNodeInfo();
    }

    st_NodeInfoSignal sentinel = makeNode({QStringLiteral("Sentinel")}, QStringLiteral("S"), 9);
    sentinel.nNodeData1 = 1234;
    st_NodeInfoSignal out = sentinel;
    drawer->getSecondNodeInfo(index, out);
    QVERIFY(sameRecord(out, sentinel));

    drawer->modifySecondItemData(index, makeNode({QStringLiteral("Changed")}, QStringLiteral("C"), 2));
    drawer->deleteSecondItem(index);

    QCOMPARE(builtRows(drawer), rowsBefore);
    for (int i = 0; i < rowsBefore.size(); ++i) {
        QCOMPARE(rowsBefore.at(i)->toolTip(), tipsBefore.at(i));
        QVERIFY(sameRecord(rowsBefore.at(i)->getNodeInfo(), recordsBefore.at(i)));
    }
}

void TestDrawerControl::setRootIndexRenumbers_data()
{
    QTest::addColumn<QList<int>>("batches");
    QTest::addColumn<int>("newIndex");

    QTest::newRow("one batch of three") << QList<int>{3} << 2;
    QTest::newRow("two batches") << QList<int>{2, 3} << 9;
    QTest::newRow("no rows") << QList<int>{} << 4;
    QTest::newRow("same index") << QList<int>{4} << 7;
    QTest::newRow("back to zero") << QList<int>{1, 1} << 0;
}

void TestDrawerControl::setRootIndexRenumbers()
{
    QFETCH(QList<int>, batches);
    QFETCH(int, newIndex);

    DrawerControl drawer;
    drawer.initRootItem(1, 7);
    for (int n : batches)
        drawer.addSecondItems(childNodes(n));

    // Make the old child indices differ from the positions first.
    if (!builtRows(&drawer).isEmpty())
        drawer.deleteSecondItem(0);

    drawer.setRootIndex(newIndex);
    QCOMPARE(drawer.rootIndex(), newIndex);
    QCOMPARE(drawer.rootItem()->getIndexText(), QString::number(newIndex));
    // Each row gets its position as child index; the root part of a row's
    // index text is the one it was built with (rows have no root setter).
    QStringList expected;
    for (int i = 0; i < builtRows(&drawer).size(); ++i)
        expected << QStringLiteral("%1-%2").arg(7).arg(i);
    QCOMPARE(indexTextsOf(&drawer), expected);

    // Rows added from now on are built with the new root index.
    drawer.addSecondItems(childNodes(1));
    QCOMPARE(indexTextsOf(&drawer).last(),
             QStringLiteral("%1-%2").arg(newIndex).arg(drawer.getSecondNodeInfos().size() - 1));

    // The new index reaches the paths reported from now on.
    QSignalSpy clicked(&drawer, &DrawerControl::signal_OnCurrentItemClicked);
    drawer.setCurSelSecondItem(0);
    QCOMPARE(intsOf(clicked.at(0).at(0)), QList<int>({newIndex, 0}));
}

// ------------------------------------------------------------------------
// selection and signals

void TestDrawerControl::clickChildRowReportsPath_data()
{
    QTest::addColumn<int>("rootIndex");
    QTest::addColumn<int>("rowCount");
    QTest::addColumn<int>("clicked");

    QTest::newRow("root 0, first of three") << 0 << 3 << 0;
    QTest::newRow("root 4, second of three") << 4 << 3 << 1;
    QTest::newRow("root 1, last of five") << 1 << 5 << 4;
    QTest::newRow("root 9, only row") << 9 << 1 << 0;
}

void TestDrawerControl::clickChildRowReportsPath()
{
    QFETCH(int, rootIndex);
    QFETCH(int, rowCount);
    QFETCH(int, clicked);

    QScopedPointer<DrawerControl> drawer(buildDrawer(nullptr, rootIndex, rowCount));
    QSignalSpy spy(drawer.data(), &DrawerControl::signal_OnCurrentItemClicked);

    SecondItem *row = builtRows(drawer).at(clicked);
    pressWidget(row);

    QCOMPARE(spy.count(), 1);
    QCOMPARE(intsOf(spy.at(0).at(0)), QList<int>({rootIndex, clicked}));
    QCOMPARE(drawer->selIndex(), QList<int>({rootIndex, clicked}));
    QCOMPARE(drawer->curSecondIndex(), clicked);
    QCOMPARE(drawer->getIsRootSel(), false);
    QCOMPARE(drawer->getIsNotRootSel(), true);
    QVERIFY(sameRecord(drawer->selNodeInfo(), row->getNodeInfo()));
    QCOMPARE(looksOf(drawer.data()), looksWithPressed(rowCount, clicked));
}

void TestDrawerControl::clickRootRowReportsNothing()
{
    const st_NodeInfoSignal rootRecord =
        makeNode({QStringLiteral("TheRoot"), QStringLiteral("low")}, QStringLiteral("RS"), 1);
    QScopedPointer<DrawerControl> drawer(buildDrawer(nullptr, 3, rootRecord, childNodes(3)));
    QSignalSpy current(drawer.data(), &DrawerControl::signal_OnCurrentItemClicked);
    QSignalSpy edit(drawer.data(), &DrawerControl::signal_OnEditBtnClicked);
    QSignalSpy del(drawer.data(), &DrawerControl::signal_OnDeleteBtnClicked);
    QSignalSpy capture(drawer.data(), &DrawerControl::signal_OnCaptureBtnClicked);
    QSignalSpy dragged(drawer.data(), &DrawerControl::signal_OnItemsIsDraged);

    pressWidget(builtRows(drawer).at(1));
    QCOMPARE(current.count(), 1);
    const QStringList looksAfterChild = looksOf(drawer.data());

    pressWidget(drawer->rootItem());

    QCOMPARE(current.count(), 1); // nothing more from the drawer
    QCOMPARE(edit.count() + del.count() + capture.count() + dragged.count(), 0);
    QCOMPARE(drawer->selIndex(), QList<int>({3}));
    QCOMPARE(drawer->getIsRootSel(), true);
    QVERIFY(sameRecord(drawer->selNodeInfo(), rootRecord));
    QCOMPARE(looksOf(drawer.data()), looksAfterChild); // child looks unchanged
    QCOMPARE(drawer->curSecondIndex(), 1);
}

void TestDrawerControl::buttonSlotsReportCurrentPath_data()
{
    QTest::addColumn<int>("selected");   // child row clicked first; -1: root row; -2: nothing
    QTest::addColumn<QString>("action"); // what is pressed
    QTest::addColumn<int>("actionRow");  // child row whose signal fires
    QTest::addColumn<QString>("signal"); // drawer signal expected
    QTest::addColumn<QList<int>>("path");

    QTest::newRow("root edit after child 2") << 2 << "rootEdit" << -1 << "edit" << QList<int>{8, 2};
    QTest::newRow("root delete after child 1") << 1 << "rootDelete" << -1 << "delete" << QList<int>{8, 1};
    QTest::newRow("root edit after root click") << -1 << "rootEdit" << -1 << "edit" << QList<int>{8};
    QTest::newRow("root edit before any selection") << -2 << "rootEdit" << -1 << "edit" << QList<int>{};
    QTest::newRow("row 0 edit signal, child 2 selected") << 2 << "rowEdit" << 0 << "edit" << QList<int>{8, 2};
    QTest::newRow("row 1 delete signal, child 0 selected") << 0 << "rowDelete" << 1 << "delete" << QList<int>{8, 0};
    QTest::newRow("row 2 capture signal, child 1 selected") << 1 << "rowCapture" << 2 << "capture" << QList<int>{8, 1};
    QTest::newRow("row 0 capture signal, root selected") << -1 << "rowCapture" << 0 << "capture" << QList<int>{8};
}

void TestDrawerControl::buttonSlotsReportCurrentPath()
{
    QFETCH(int, selected);
    QFETCH(QString, action);
    QFETCH(int, actionRow);
    QFETCH(QString, signal);
    QFETCH(QList<int>, path);

    QScopedPointer<DrawerControl> drawer(buildDrawer(nullptr, 8, 3));
    if (selected >= 0)
        pressWidget(builtRows(drawer).at(selected));
    else if (selected == -1)
        pressWidget(drawer->rootItem());

    QSignalSpy current(drawer.data(), &DrawerControl::signal_OnCurrentItemClicked);
    QSignalSpy edit(drawer.data(), &DrawerControl::signal_OnEditBtnClicked);
    QSignalSpy del(drawer.data(), &DrawerControl::signal_OnDeleteBtnClicked);
    QSignalSpy capture(drawer.data(), &DrawerControl::signal_OnCaptureBtnClicked);

    if (action == QLatin1String("rootEdit")) {
        QToolButton *btn = rootButton(drawer->rootItem(), "isEditBtn");
        QVERIFY(btn);
        btn->click();
    } else if (action == QLatin1String("rootDelete")) {
        QToolButton *btn = rootButton(drawer->rootItem(), "isDelBtn");
        QVERIFY(btn);
        btn->click();
    } else {
        // The row's own signal alone, without its click: the drawer must
        // report its current selection, not the row that fired.
        const char *name = action == QLatin1String("rowEdit") ? "signal_OnEditBtnClicked"
            : action == QLatin1String("rowDelete")            ? "signal_OnDeleteBtnClicked"
                                                               : "signal_OnCaptureBtnClicked";
        QVERIFY(QMetaObject::invokeMethod(builtRows(drawer).at(actionRow), name,
                                          Qt::DirectConnection));
    }

    QSignalSpy *expectedSpy = signal == QLatin1String("edit") ? &edit
        : signal == QLatin1String("delete")                   ? &del
                                                              : &capture;
    QCOMPARE(expectedSpy->count(), 1);
    QCOMPARE(intsOf(expectedSpy->at(0).at(0)), path);
    QCOMPARE(edit.count() + del.count() + capture.count(), 1);
    QCOMPARE(current.count(), 0);
}

void TestDrawerControl::childButtonsReportAfterClick_data()
{
    QTest::addColumn<int>("button"); // position in the row's button frame
    QTest::addColumn<QString>("signal");

    QTest::newRow("capture") << 0 << "capture";
    QTest::newRow("edit") << 1 << "edit";
    QTest::newRow("delete") << 2 << "delete";
}

void TestDrawerControl::childButtonsReportAfterClick()
{
    QFETCH(int, button);
    QFETCH(QString, signal);

    QStringList events; // outlives the drawer and its connections
    QScopedPointer<DrawerControl> drawer(buildDrawer(nullptr, 2, 3));
    pressWidget(drawer->rootItem());

    auto record = [&events](const char *tag) {
        return [&events, tag](const QList<int> &p) {
            QStringList parts;
            for (int v : p)
                parts << QString::number(v);
            events << QStringLiteral("%1[%2]").arg(QLatin1String(tag), parts.join(QLatin1Char(',')));
        };
    };
    connect(drawer.data(), &DrawerControl::signal_OnCurrentItemClicked, this, record("current"));
    connect(drawer.data(), &DrawerControl::signal_OnEditBtnClicked, this, record("edit"));
    connect(drawer.data(), &DrawerControl::signal_OnDeleteBtnClicked, this, record("delete"));
    connect(drawer.data(), &DrawerControl::signal_OnCaptureBtnClicked, this, record("capture"));

    const QList<QToolButton *> buttons = rowButtons(builtRows(drawer).at(1));
    QCOMPARE(buttons.size(), 4);
    QVERIFY(buttons.at(button));
    buttons.at(button)->click();

    // The row's click comes first and makes it the selection; the button's
    // report then carries that path.
    QCOMPARE(events, QStringList({QStringLiteral("current[2,1]"), signal + QStringLiteral("[2,1]")}));
    QCOMPARE(drawer->selIndex(), QList<int>({2, 1}));
    disconnect(drawer.data(), nullptr, this, nullptr);
}

void TestDrawerControl::setCurSelSecondItem_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<bool>("childClickedFirst");
    QTest::addColumn<bool>("locked");

    QTest::newRow("row 0") << 0 << false << false;
    QTest::newRow("row 2") << 2 << false << false;
    QTest::newRow("row 2 after a child click") << 2 << true << false;
    QTest::newRow("out of range 5") << 5 << false << false;
    QTest::newRow("negative") << -1 << true << false;
    QTest::newRow("locked selection is ignored") << 0 << false << true;
    QTest::newRow("locked, after a child click") << 1 << true << true;
}

void TestDrawerControl::setCurSelSecondItem()
{
    QFETCH(int, index);
    QFETCH(bool, childClickedFirst);
    QFETCH(bool, locked);

    QScopedPointer<DrawerControl> drawer(buildDrawer(nullptr, 6, 3));
    if (childClickedFirst)
        pressWidget(builtRows(drawer).at(1));
    drawer->setIsLockSel(locked);
    const bool rootSelBefore = drawer->getIsRootSel();
    const st_NodeInfoSignal selBefore = drawer->selNodeInfo();
    QSignalSpy spy(drawer.data(), &DrawerControl::signal_OnCurrentItemClicked);

    drawer->setCurSelSecondItem(index);

    QCOMPARE(spy.count(), 1);
    QCOMPARE(intsOf(spy.at(0).at(0)), QList<int>({6, index}));
    QCOMPARE(drawer->selIndex(), QList<int>({6, index}));
    QCOMPARE(drawer->curSecondIndex(), index);
    QCOMPARE(looksOf(drawer.data()), looksWithPressed(3, index));
    QCOMPARE(drawer->getIsRootSel(), rootSelBefore);
    QCOMPARE(drawer->getIsRootSel(), !childClickedFirst);
    QVERIFY(sameRecord(drawer->selNodeInfo(), selBefore));
}

void TestDrawerControl::markSelSecondItemHonoursLock_data()
{
    QTest::addColumn<int>("rows");
    QTest::addColumn<int>("index");
    QTest::addColumn<bool>("locked");
    QTest::addColumn<int>("expectedPressed"); // -1: none

    // After adding, the last row is pressed.
    QTest::newRow("unlocked, row 0") << 3 << 0 << false << 0;
    QTest::newRow("unlocked, row 1") << 3 << 1 << false << 1;
    QTest::newRow("unlocked, out of range") << 3 << 7 << false << -1;
    QTest::newRow("unlocked, negative") << 3 << -1 << false << -1;
    QTest::newRow("locked, row 0") << 3 << 0 << true << 2;
    QTest::newRow("locked, out of range") << 3 << 7 << true << 2;
    QTest::newRow("no rows") << 0 << 0 << false << -1;
}

void TestDrawerControl::markSelSecondItemHonoursLock()
{
    QFETCH(int, rows);
    QFETCH(int, index);
    QFETCH(bool, locked);
    QFETCH(int, expectedPressed);

    QScopedPointer<DrawerControl> drawer(buildDrawer(nullptr, 0, rows));
    drawer->setIsLockSel(locked);
    QSignalSpy spy(drawer.data(), &DrawerControl::signal_OnCurrentItemClicked);
    const int curBefore = drawer->curSecondIndex();

    drawer->markSelSecondItem(index);

    QCOMPARE(looksOf(drawer.data()), looksWithPressed(rows, expectedPressed));
    QCOMPARE(spy.count(), 0);
    QCOMPARE(drawer->curSecondIndex(), curBefore);
    QVERIFY(drawer->selIndex().isEmpty());
}

// ------------------------------------------------------------------------
// expand and collapse, pass-throughs

void TestDrawerControl::doubleClickTogglesExpand_data()
{
    QTest::addColumn<bool>("startExpanded");
    QTest::addColumn<bool>("rootSignalsBlocked");

    QTest::newRow("collapsed") << false << false;
    QTest::newRow("expanded") << true << false;
    QTest::newRow("collapsed, root signals blocked") << false << true;
}

void TestDrawerControl::doubleClickTogglesExpand()
{
    QFETCH(bool, startExpanded);
    QFETCH(bool, rootSignalsBlocked);

    QScopedPointer<DrawerControl> drawer(buildDrawer(nullptr, 0, 2));
    drawer->setIsShowChildItem(startExpanded);
    QCOMPARE(drawer->isShowChild(), startExpanded);
    QCOMPARE(!drawer->childContainer()->isHidden(), startExpanded);

    RootItem *root = drawer->rootItem();
    QCheckBox *box = root->findChild<QCheckBox *>();
    QVERIFY(box);
    QSignalSpy rootShow(root, &RootItem::signal_OnIsShowChildItems);
    QSignalSpy doubleClicked(drawer.data(), &DrawerControl::signal_OnItemIsDoubleClicked);
    root->blockSignals(rootSignalsBlocked);

    const QPoint onDrawer(3, 3); // the drawer's own margin
    for (int round = 1; round <= 2; ++round) {
        const bool before = drawer->isShowChild();
        sendToWidget(drawer.data(), QEvent::MouseButtonPress, onDrawer, Qt::LeftButton, Qt::LeftButton);
        sendToWidget(drawer.data(), QEvent::MouseButtonRelease, onDrawer, Qt::LeftButton, Qt::NoButton);
        sendToWidget(drawer.data(), QEvent::MouseButtonDblClick, onDrawer, Qt::LeftButton, Qt::LeftButton);
        sendToWidget(drawer.data(), QEvent::MouseButtonRelease, onDrawer, Qt::LeftButton, Qt::NoButton);

        // The root row's expand box always follows the opposite of the
        // drawer's state; the drawer itself changes only through the
        // root row's signal.
        QCOMPARE(box->isChecked(), !before);
        if (rootSignalsBlocked) {
            QCOMPARE(rootShow.count(), 0);
            QCOMPARE(drawer->isShowChild(), before);
            QCOMPARE(!drawer->childContainer()->isHidden(), before);
            QCOMPARE(drawer->childContainer()->isHidden(), !startExpanded);
        } else {
            QCOMPARE(rootShow.count(), round);
            QCOMPARE(rootShow.last().at(0).toBool(), !before);
            QCOMPARE(drawer->isShowChild(), !before);
            QCOMPARE(!drawer->childContainer()->isHidden(), !before);
        }
        QCOMPARE(doubleClicked.count(), 0);
    }
    root->blockSignals(false);
}

void TestDrawerControl::passThroughs()
{
    QScopedPointer<DrawerControl> drawer(buildDrawer(nullptr, 2, 2));
    RootItem *root = drawer->rootItem();
    QCheckBox *box = root->findChild<QCheckBox *>();
    QVERIFY(box);

    drawer->setRootItemState(4);
    QCOMPARE(root->getItemType(), 4);

    st_NodeInfoSignal record = makeNode({QStringLiteral("Renamed"), QStringLiteral("two")},
                                        QStringLiteral("Src"), 1);
    record.nNodeData2 = Q_INT64_C(0x123456789);
    drawer->modifyRootItemData(record);
    QVERIFY(sameRecord(drawer->getRootNodeInfo(), record));
    QVERIFY(sameRecord(root->getNodeInfo(), record));

    drawer->setIsShowChildItem(true);
    QCOMPARE(box->isChecked(), true);
    QCOMPARE(drawer->isShowChild(), true);
    QVERIFY(!drawer->childContainer()->isHidden());
    drawer->setIsShowChildItem(false);
    QCOMPARE(box->isChecked(), false);
    QCOMPARE(drawer->isShowChild(), false);
    QVERIFY(drawer->childContainer()->isHidden());

    // Selecting the root row by code expands it (and makes it the selection).
    pressWidget(builtRows(drawer).at(0));
    QCOMPARE(drawer->getIsRootSel(), false);
    drawer->setRootItemSelected(true);
    QCOMPARE(drawer->isShowChild(), true);
    QVERIFY(!drawer->childContainer()->isHidden());
    QCOMPARE(drawer->getIsRootSel(), true);
    QCOMPARE(drawer->selIndex(), QList<int>({2}));
    drawer->setRootItemSelected(false);
    QCOMPARE(drawer->isShowChild(), false);
    QVERIFY(drawer->childContainer()->isHidden());

    drawer->reTranslateUI(); // reaches the rows; nothing visible changes
    QCOMPARE(builtRows(drawer).size(), 2);
}

void TestDrawerControl::uninitialisedDrawerIgnoresRootCalls()
{
    DrawerControl drawer;
    drawer.setIsShowChildItem(true);
    drawer.setRootItemSelected(true);
    drawer.reTranslateUI();
    sendToWidget(&drawer, QEvent::MouseButtonDblClick, QPoint(2, 2), Qt::LeftButton, Qt::LeftButton);
    QCOMPARE(drawer.isShowChild(), false);
    QCOMPARE(drawer.rootItem(), nullptr);
    QVERIFY(sameRecord(drawer.getRootNodeInfo(), st_NodeInfoSignal()));
}

void TestDrawerControl::setIsDragDrivesAcceptDrops()
{
    DrawerControl drawer;
    drawer.initRootItem(1, 0);
    QCOMPARE(drawer.acceptDrops(), false);
    drawer.setIsDrag(true);
    QCOMPARE(drawer.acceptDrops(), true);
    QCOMPARE(drawer.childContainer()->acceptDrops(), true);
    drawer.setIsDrag(false);
    QCOMPARE(drawer.acceptDrops(), false);
    QCOMPARE(drawer.childContainer()->acceptDrops(), true);
}

// ------------------------------------------------------------------------
// lifetime

void TestDrawerControl::destructorTrace()
{
    auto *drawer = buildDrawer(nullptr, 0, 2);
    QPointer<SecondItem> row = builtRows(drawer).at(0);
    QPointer<RootItem> root = drawer->rootItem();

    QTest::ignoreMessage(QtDebugMsg, "[Tarn]::DrawerControl::~DrawerControl()");
    delete drawer;
    QVERIFY(row.isNull());
    QVERIFY(root.isNull());
}

void TestDrawerControl::releaseSelfWithoutDrag()
{
    QWidget host;
    QPointer<DrawerControl> drawer = buildDrawer(&host, 0, 2);

    MessageCapture log;
    drawer->releaseSelf();
    QCOMPARE(drawerLines(log), QStringList({"[Tarn]::DrawerControl::releaseSelf",
                                            "[Tarn]::DrawerControl::releaseSelf delete"}));
    // Deleted later, not at once, and not detached.
    QVERIFY(!drawer.isNull());
    QCOMPARE(drawer->parentWidget(), &host);

    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(drawer.isNull());
    QCOMPARE(drawerLines(log).last(), QStringLiteral("[Tarn]::DrawerControl::~DrawerControl()"));
}

// ------------------------------------------------------------------------
// drag and drop

#define REQUIRE_REAL_DRAG()                                                                       \
    do {                                                                                          \
        if (!realDragAvailable())                                                                 \
            QSKIP("needs the minimal platform, whose in-process drag runs QDrag::exec");          \
    } while (false)

void TestDrawerControl::dragThreshold_data()
{
    const int d = QApplication::startDragDistance();
    QTest::addColumn<QPoint>("offset"); // from the press to the move
    QTest::addColumn<bool>("starts");

    QTest::newRow("exactly the distance") << QPoint(d, 0) << true;
    QTest::newRow("one pixel short") << QPoint(d - 1, 0) << false;
    QTest::newRow("Manhattan exactly the distance") << QPoint(d - 3, 3) << true;
    QTest::newRow("Manhattan one short") << QPoint(d - 3, 2) << false;
    QTest::newRow("Manhattan, upward, exactly") << QPoint(d - 2, -2) << true;
    QTest::newRow("beyond the distance") << QPoint(d + 4, 0) << true;
}

void TestDrawerControl::dragThreshold()
{
    REQUIRE_REAL_DRAG();
    QFETCH(QPoint, offset);
    QFETCH(bool, starts);

    DndScene scene;
    QVERIFY(scene.ready());
    DrawerControl *src = scene.src;
    pressWidget(builtRows(src).at(1)); // select a child row

    // End over child row 1, a few pixels into it; start in the container's
    // left margin beside it (a press there reaches the drawer).
    const QRect row = rowRects(src).at(1);
    const QPoint end(row.left() + 4, row.center().y());
    const QPoint start = end - offset;
    QVERIFY2(!onAnyRow(src, start), "the press must land beside the rows");
    QVERIFY(src->childAt(start) == src->childContainer() || src->childAt(start) == nullptr);

    const DragOutcome out =
        dragGesture(src, start, end, [&](DragOutcome &) { releaseNowhere(scene.windowHandle()); });

    QCOMPARE(out.started, starts);
    QCOMPARE(out.draggingInside, starts);
    QCOMPARE(!out.drag.isNull(), starts);
    if (starts)
        QTRY_VERIFY_WITH_TIMEOUT(out.drag.isNull(), 10000);
    QVERIFY(!src->isDragging());
}

void TestDrawerControl::dragStartsOnlyOverChildRow_data()
{
    QTest::addColumn<QString>("where");
    QTest::addColumn<bool>("starts");

    QTest::newRow("over a child row (control)") << "row" << true;
    QTest::newRow("over the root row") << "root" << false;
    QTest::newRow("over the gap between rows") << "gap" << false;
    QTest::newRow("over the spacing above the first row") << "top" << false;
    QTest::newRow("over the container margin") << "margin" << false;
    QTest::newRow("right of the rows") << "right" << false;
}

void TestDrawerControl::dragStartsOnlyOverChildRow()
{
    REQUIRE_REAL_DRAG();
    QFETCH(QString, where);
    QFETCH(bool, starts);

    DndScene scene;
    QVERIFY(scene.ready());
    DrawerControl *src = scene.src;
    pressWidget(builtRows(src).at(2));
    QCOMPARE(src->getIsRootSel(), false);

    const QList<QRect> rows = rowRects(src);
    QPoint end;
    if (where == QLatin1String("row"))
        end = rowCentre(src, 0);
    else if (where == QLatin1String("root"))
        end = rootCentre(src);
    else if (where == QLatin1String("gap"))
        end = gapBelowRow(src, 1);
    else if (where == QLatin1String("top"))
        end = QPoint(rows.at(0).left() + 20, rows.at(0).top() - 4);
    else if (where == QLatin1String("margin"))
        end = marginBesideRow(src, 1);
    else
        end = QPoint(src->width() - 4, rows.at(1).center().y());
    QCOMPARE(onAnyRow(src, end), starts);

    // Press in the drawer's own left margin, far enough away.
    const QPoint start(2, end.y());
    QVERIFY((end - start).manhattanLength() >= QApplication::startDragDistance());

    const DragOutcome out =
        dragGesture(src, start, end, [&](DragOutcome &) { releaseNowhere(scene.windowHandle()); });
    QCOMPARE(out.started, starts);
    QCOMPARE(!out.drag.isNull(), starts);
    QTRY_VERIFY_WITH_TIMEOUT(!src->isDragging(), 10000);
}

void TestDrawerControl::noDragWhileRootSelected()
{
    REQUIRE_REAL_DRAG();
    DndScene scene;
    QVERIFY(scene.ready());
    DrawerControl *src = scene.src;
    auto release = [&](DragOutcome &) { releaseNowhere(scene.windowHandle()); };

    pressWidget(builtRows(src).at(1));
    pressWidget(src->rootItem());
    QCOMPARE(src->getIsRootSel(), true);
    const QPoint end = rowCentre(src, 1);
    DragOutcome out = dragGesture(src, QPoint(2, end.y()), end, release);
    QCOMPARE(out.started, false);
    QCOMPARE(src->findChild<QDrag *>(), nullptr);

    // Selecting a child again allows the same gesture.
    pressWidget(builtRows(src).at(1));
    out = dragGesture(src, QPoint(2, end.y()), end, release);
    QCOMPARE(out.started, true);
    QTRY_VERIFY_WITH_TIMEOUT(out.drag.isNull(), 10000);
}

void TestDrawerControl::noDragWhenDraggingDisabled()
{
    REQUIRE_REAL_DRAG();
    DndScene scene;
    QVERIFY(scene.ready());
    DrawerControl *src = scene.src;
    src->setIsDrag(false);
    pressWidget(builtRows(src).at(0));

    const QPoint end = rowCentre(src, 0);
    const DragOutcome out = dragGesture(src, QPoint(2, end.y()), end,
                                        [&](DragOutcome &) { releaseNowhere(scene.windowHandle()); });
    QCOMPARE(out.started, false);
    QCOMPARE(src->findChild<QDrag *>(), nullptr);
}

void TestDrawerControl::dragObject()
{
    REQUIRE_REAL_DRAG();
    DndScene scene;
    QVERIFY(scene.ready());
    DrawerControl *src = scene.src;
    pressWidget(builtRows(src).at(1));

    MessageCapture log;
    const QPoint end = rowCentre(src, 2); // the row under the pointer does not matter
    const DragOutcome out = dragGesture(src, QPoint(2, end.y()), end,
                                        [&](DragOutcome &) { releaseNowhere(scene.windowHandle()); });
    QVERIFY(out.started);
    QVERIFY(out.draggingInside);
    QCOMPARE(out.dragParent, static_cast<QObject *>(src));
    QCOMPARE(out.text, QStringLiteral("3,1")); // the selection, not row 2
    QCOMPARE(out.hotSpot, QDrag(nullptr).hotSpot()); // none set: the default
    QCOMPARE(out.actions, Qt::DropActions(Qt::MoveAction));

    // The drag object outlives exec(); the drawer holds it until it dies.
    QVERIFY(!out.drag.isNull());
    QVERIFY(src->isDragging());
    QVERIFY(drawerLines(log).isEmpty());
    QTRY_VERIFY_WITH_TIMEOUT(out.drag.isNull(), 10000);
    QVERIFY(!src->isDragging());
    QCOMPARE(drawerLines(log), QStringList({"[Tarn]::DrawerControl::slot_releaseDrag",
                                            "[Tarn]::DrawerControl::slot_releaseDrag end"}));
    QCOMPARE(src->parentWidget(), scene.window.get());
}

void TestDrawerControl::dropReportsPaths_data()
{
    QTest::addColumn<int>("selectedChild");
    QTest::addColumn<QString>("target");
    QTest::addColumn<bool>("dstDragEnabled");
    QTest::addColumn<bool>("reported");
    QTest::addColumn<QList<int>>("lstDst");

    // Source: root index 3; target: root index 5.
    QTest::newRow("child 1 onto the root row") << 1 << "root" << true << true << QList<int>{5};
    QTest::newRow("child 1 onto the third child") << 1 << "row2" << true << true << QList<int>{5, 2};
    QTest::newRow("child 0 onto the first child") << 0 << "row0" << true << true << QList<int>{5, 0};
    QTest::newRow("child 2 onto the gap") << 2 << "gap" << true << true << QList<int>{5};
    QTest::newRow("child 2 onto the container margin") << 2 << "margin" << true << true << QList<int>{5};
    QTest::newRow("child 0 onto the drawer margin") << 0 << "drawerMargin" << true << true << QList<int>{5};
    QTest::newRow("target with dragging off") << 1 << "row2" << false << false << QList<int>{};
}

void TestDrawerControl::dropReportsPaths()
{
    REQUIRE_REAL_DRAG();
    QFETCH(int, selectedChild);
    QFETCH(QString, target);
    QFETCH(bool, dstDragEnabled);
    QFETCH(bool, reported);
    QFETCH(QList<int>, lstDst);

    DndScene scene;
    QVERIFY(scene.ready());
    DrawerControl *src = scene.src;
    DrawerControl *dst = scene.dst;
    dst->setIsDrag(dstDragEnabled);
    pressWidget(builtRows(src).at(selectedChild));

    QPoint dropPos;
    if (target == QLatin1String("root"))
        dropPos = rootCentre(dst);
    else if (target.startsWith(QLatin1String("row")))
        dropPos = rowCentre(dst, target.mid(3).toInt());
    else if (target == QLatin1String("gap"))
        dropPos = gapBelowRow(dst, 0);
    else if (target == QLatin1String("margin"))
        dropPos = marginBesideRow(dst, 1);
    else
        dropPos = QPoint(3, rowCentre(dst, 1).y());
    QCOMPARE(onAnyRow(dst, dropPos), target.startsWith(QLatin1String("row")));

    QSignalSpy dstSpy(dst, &DrawerControl::signal_OnItemsIsDraged);
    QSignalSpy srcSpy(src, &DrawerControl::signal_OnItemsIsDraged);
    QSignalSpy completed(dst, &DrawerControl::signal_OnCompleteDraged);

    const QPoint end = rowCentre(src, 0);
    const QPoint global = dst->mapToGlobal(dropPos);
    const DragOutcome out = dragGesture(src, QPoint(2, end.y()), end, [&](DragOutcome &) {
        moveAndRelease(scene.windowHandle(), global);
    });
    QVERIFY(out.started);
    QCOMPARE(out.text, QStringLiteral("3,%1").arg(selectedChild));

    if (reported) {
        QCOMPARE(dstSpy.count(), 1);
        QCOMPARE(intsOf(dstSpy.at(0).at(0)), QList<int>({3, selectedChild}));
        QCOMPARE(intsOf(dstSpy.at(0).at(1)), lstDst);
    } else {
        QCOMPARE(dstSpy.count(), 0);
    }
    QCOMPARE(srcSpy.count(), 0);
    QTRY_VERIFY_WITH_TIMEOUT(out.drag.isNull(), 10000);
    QCOMPARE(completed.count(), 0); // the drawer never emits it
    QCOMPARE(dstSpy.count(), reported ? 1 : 0);
}

void TestDrawerControl::dropOnStartingDrawerIgnored_data()
{
    QTest::addColumn<QString>("target");
    QTest::newRow("its third child") << "row2";
    QTest::newRow("its own selected row") << "row1";
    QTest::newRow("its root row") << "root";
    QTest::newRow("its gap") << "gap";
}

void TestDrawerControl::dropOnStartingDrawerIgnored()
{
    REQUIRE_REAL_DRAG();
    QFETCH(QString, target);

    DndScene scene;
    QVERIFY(scene.ready());
    DrawerControl *src = scene.src;
    pressWidget(builtRows(src).at(1));

    QPoint dropPos;
    if (target == QLatin1String("root"))
        dropPos = rootCentre(src);
    else if (target == QLatin1String("gap"))
        dropPos = gapBelowRow(src, 1);
    else
        dropPos = rowCentre(src, target.mid(3).toInt());

    QSignalSpy srcSpy(src, &DrawerControl::signal_OnItemsIsDraged);
    QSignalSpy dstSpy(scene.dst.data(), &DrawerControl::signal_OnItemsIsDraged);
    const QPoint end = rowCentre(src, 0);
    const QPoint global = src->mapToGlobal(dropPos);
    const DragOutcome out = dragGesture(src, QPoint(2, end.y()), end, [&](DragOutcome &) {
        moveAndRelease(scene.windowHandle(), global);
    });
    QVERIFY(out.started);
    QCOMPARE(srcSpy.count(), 0);
    QCOMPARE(dstSpy.count(), 0);
    QTRY_VERIFY_WITH_TIMEOUT(out.drag.isNull(), 10000);
    QVERIFY(!src->isDragging());
}

void TestDrawerControl::dropFromForeignSourceIgnored()
{
    REQUIRE_REAL_DRAG();
    DndScene scene;
    QVERIFY(scene.ready());
    DrawerControl *dst = scene.dst;
    QSignalSpy dstSpy(dst, &DrawerControl::signal_OnItemsIsDraged);

    // A drag whose source is a plain widget, carrying a well-formed text.
    QWidget *foreign = new QWidget(scene.window.get());
    QPointer<QDrag> drag = textDrag(foreign, QStringLiteral("0,1"));

    bool ran = false;
    const Qt::DropAction result =
        execReleasedAt(drag, scene.windowHandle(), dst->mapToGlobal(rowCentre(dst, 1)), &ran);
    QVERIFY(ran);
    QCOMPARE(result, Qt::IgnoreAction);
    QCOMPARE(dstSpy.count(), 0);
}

void TestDrawerControl::dropDecodesText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QList<int>>("lstSrc");

    QTest::newRow("root only") << "4" << QList<int>{4};
    QTest::newRow("root and child") << "3,1" << QList<int>{3, 1};
    QTest::newRow("empty text") << "" << QList<int>{0};
    QTest::newRow("empty part kept") << "7,,2" << QList<int>{7, 0, 2};
    QTest::newRow("not a number") << "x,5" << QList<int>{0, 5};
    QTest::newRow("hex is not decimal") << "0x10,9" << QList<int>{0, 9};
    QTest::newRow("negative") << "12,-1" << QList<int>{12, -1};
    QTest::newRow("trailing comma") << "6," << QList<int>{6, 0};
}

void TestDrawerControl::dropDecodesText()
{
    REQUIRE_REAL_DRAG();
    QFETCH(QString, text);
    QFETCH(QList<int>, lstSrc);

    DndScene scene;
    QVERIFY(scene.ready());
    DrawerControl *dst = scene.dst;
    QSignalSpy dstSpy(dst, &DrawerControl::signal_OnItemsIsDraged);

    // Any other drawer is an acceptable source, whatever its drag text.
    DrawerControl otherDrawer;
    QPointer<QDrag> drag = textDrag(&otherDrawer, text);

    bool ran = false;
    const Qt::DropAction result =
        execReleasedAt(drag, scene.windowHandle(), dst->mapToGlobal(rowCentre(dst, 1)), &ran);
    QVERIFY(ran);
    QCOMPARE(result, Qt::MoveAction);
    QCOMPARE(dstSpy.count(), 1);
    QCOMPARE(intsOf(dstSpy.at(0).at(0)), lstSrc);
    QCOMPARE(intsOf(dstSpy.at(0).at(1)), QList<int>({5, 1}));
    QTRY_VERIFY_WITH_TIMEOUT(drag.isNull(), 10000);
}

void TestDrawerControl::dragTextCarriesCurrentChildIndex()
{
    REQUIRE_REAL_DRAG();
    DndScene scene;
    QVERIFY(scene.ready());
    DrawerControl *src = scene.src;
    pressWidget(builtRows(src).at(0));
    QCOMPARE(src->selIndex(), QList<int>({3, 0}));

    // addSecondItem moves the current child index but not the path: the
    // drag text takes the current child index.
    src->addSecondItem(makeNode({QStringLiteral("Appended")}, QStringLiteral("A"), 1), 3, 3);
    QCOMPARE(src->curSecondIndex(), 3);
    QCOMPARE(src->selIndex(), QList<int>({3, 0}));

    const QPoint end = rowCentre(src, 1);
    const DragOutcome out = dragGesture(src, QPoint(2, end.y()), end,
                                        [&](DragOutcome &) { releaseNowhere(scene.windowHandle()); });
    QVERIFY(out.started);
    QCOMPARE(out.text, QStringLiteral("3,3"));
    // The caption still comes from the selected record (row 0: "Src0").
    QVERIFY(out.image == expectedDragImage(QStringLiteral("Src0"), src->devicePixelRatioF()));
    QTRY_VERIFY_WITH_TIMEOUT(out.drag.isNull(), 10000);
}

void TestDrawerControl::dragCaption_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("caption"); // written out from the 9-character rule

    QTest::newRow("9 characters, whole") << "ABCDEFGHI" << "ABCDEFGHI";
    QTest::newRow("10 characters, cut") << "ABCDEFGHIJ" << "ABCDEF...";
    QTest::newRow("short") << "Cam" << "Cam";
    QTest::newRow("8 characters") << "Camera 8" << "Camera 8";
    QTest::newRow("20 characters, cut") << "Projector Left Wall1" << "Projec...";
    QTest::newRow("one character") << "X" << "X";
}

void TestDrawerControl::dragCaption()
{
    REQUIRE_REAL_DRAG();
    QFETCH(QString, name);
    QFETCH(QString, caption);

    // The caption comes from the first name line of the selected record.
    QList<st_NodeInfoSignal> children = childNodes(3, QStringLiteral("Src"));
    children[1].strNodeName = QStringList{name, QStringLiteral("second line")};
    DndScene scene(children);
    QVERIFY(scene.ready());
    DrawerControl *src = scene.src;
    pressWidget(builtRows(src).at(1));

    const QPoint end = rowCentre(src, 0);
    const DragOutcome out = dragGesture(src, QPoint(2, end.y()), end,
                                        [&](DragOutcome &) { releaseNowhere(scene.windowHandle()); });
    QVERIFY(out.started);
    QVERIFY(!out.image.isNull());

    // Painted at the screen's ratio (QT_SCALE_FACTOR=2 runs this too).
    const qreal ratio = src->devicePixelRatioF();
    QCOMPARE(out.ratio, ratio);
    const QImage expected = expectedDragImage(caption, ratio);
    QCOMPARE(out.image.size(), expected.size());
    QVERIFY2(out.image == expected, "the drag picture differs from the expected caption");
    // The comparison can tell captions apart: the blank picture and, when
    // the name is cut, the whole name look different.
    QVERIFY(out.image != expectedDragImage(QString(), ratio));
    if (caption != name)
        QVERIFY(out.image != expectedDragImage(name, ratio));
    QTRY_VERIFY_WITH_TIMEOUT(out.drag.isNull(), 10000);
}

void TestDrawerControl::namelessSelectionWritesTrace()
{
    REQUIRE_REAL_DRAG();
    QList<st_NodeInfoSignal> children = childNodes(3, QStringLiteral("Src"));
    st_NodeInfoSignal nameless;
    nameless.strSourceName = QStringLiteral("Input 7");
    nameless.isOnline = true;
    nameless.iType = 3;
    nameless.eInputSourceType = 2;
    nameless.showOpBtn = {true, false, true};
    nameless.iInputSourceNo = 11;
    nameless.iSignalGroupNo = 12;
    nameless.nNodeData1 = 77;
    nameless.nNodeData2 = 88;
    children[0] = nameless;
    DndScene scene(children);
    QVERIFY(scene.ready());
    DrawerControl *src = scene.src;
    pressWidget(builtRows(src).at(0));
    QVERIFY(src->selNodeInfo().strNodeName.isEmpty());

    QTest::ignoreMessage(QtDebugMsg,
                         "m_stSelNodeInfo.strNodeName.isEmpty , strSourceName: \"Input 7\" , "
                         "isOnline: true , iType: 3 , eInputSourceType: 2 , "
                         "showOpBtn: (true, false, true) , iInputSourceNo: 11 , "
                         "iSignalGroupNo: 12");
    const QPoint end = rowCentre(src, 1);
    const DragOutcome out = dragGesture(src, QPoint(2, end.y()), end,
                                        [&](DragOutcome &) { releaseNowhere(scene.windowHandle()); });
    QCOMPARE(out.started, false);
    QCOMPARE(src->findChild<QDrag *>(), nullptr);
    QVERIFY(!src->isDragging());
}

void TestDrawerControl::releaseSelfDuringDrag_data()
{
    QTest::addColumn<bool>("insideDragLoop");
    QTest::newRow("inside the drag's loop") << true;
    QTest::newRow("after exec, drag object still alive") << false;
}

void TestDrawerControl::releaseSelfDuringDrag()
{
    REQUIRE_REAL_DRAG();
    QFETCH(bool, insideDragLoop);

    DndScene scene;
    QVERIFY(scene.ready());
    QPointer<DrawerControl> src = scene.src;
    DrawerControl *dst = scene.dst;
    pressWidget(builtRows(src).at(1));
    QSignalSpy dstSpy(dst, &DrawerControl::signal_OnItemsIsDraged);

    MessageCapture log;
    bool aliveWhenDragDied = false;
    bool draggingWhenDragDied = true;
    bool parentlessInside = false;
    const QPoint global = dst->mapToGlobal(rowCentre(dst, 2));
    const QPoint end = rowCentre(src, 0);
    QObject watcher; // ends the connection below with this function
    const DragOutcome out = dragGesture(src, QPoint(2, end.y()), end, [&](DragOutcome &o) {
        if (!o.drag) { // never leave the drag running
            releaseNowhere(scene.windowHandle());
            return;
        }
        connect(o.drag.data(), &QObject::destroyed, &watcher, [&] {
            aliveWhenDragDied = !src.isNull();
            draggingWhenDragDied = src && src->isDragging();
        });
        if (insideDragLoop) {
            src->releaseSelf();
            parentlessInside = src && src->parentWidget() == nullptr;
        }
        moveAndRelease(scene.windowHandle(), global);
    });
    QVERIFY(out.started);
    if (insideDragLoop)
        QVERIFY(parentlessInside);
    else
        src->releaseSelf();

    // The drop still reports the source's path.
    QCOMPARE(dstSpy.count(), 1);
    QCOMPARE(intsOf(dstSpy.at(0).at(0)), QList<int>({3, 1}));
    QCOMPARE(intsOf(dstSpy.at(0).at(1)), QList<int>({5, 2}));

    // Alive and parentless while the drag object lives.
    QVERIFY(!src.isNull());
    QCOMPARE(src->parentWidget(), nullptr);
    QVERIFY(!out.drag.isNull());
    QVERIFY(src->isDragging());
    QCOMPARE(drawerLines(log), QStringList({"[Tarn]::DrawerControl::releaseSelf"}));

    // The drag object goes, then the drawer deletes itself.
    QTRY_VERIFY_WITH_TIMEOUT(out.drag.isNull(), 10000);
    QTRY_VERIFY_WITH_TIMEOUT(src.isNull(), 10000);
    QVERIFY(aliveWhenDragDied);
    QVERIFY(!draggingWhenDragDied);
    QCOMPARE(drawerLines(log),
             QStringList({"[Tarn]::DrawerControl::releaseSelf",
                          "[Tarn]::DrawerControl::slot_releaseDrag",
                          "[Tarn]::DrawerControl::slot_releaseDrag deleteLater",
                          "[Tarn]::DrawerControl::slot_releaseDrag deleteLater end",
                          "[Tarn]::DrawerControl::slot_releaseDrag end",
                          "[Tarn]::DrawerControl::~DrawerControl()"}));
    // The other drawer is untouched.
    QCOMPARE(dst->parentWidget(), scene.window.get());
}

// The minimal platform registers no fonts unless asked to; the drag caption
// is compared glyph for glyph and row texts are measured, so ask for the
// system fonts there.
int main(int argc, char *argv[])
{
    if (qgetenv("QT_QPA_PLATFORM") == "minimal")
        qputenv("QT_QPA_PLATFORM", "minimal:enable_fonts");
    QApplication app(argc, argv);
    TestDrawerControl test;
    QTEST_SET_MAIN_SOURCE_PATH
    return QTest::qExec(&test, argc, argv);
}

#include "tst_drawercontrol.moc"
