// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

// Autotest of DrawerControl: drag and drop between drawers.
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
#include "DrawerProbe.h"
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

using namespace DrawerProbe;

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

} // namespace

class TestDrawerControlDrag : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();

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

void TestDrawerControlDrag::initTestCase()
{
    EventSender::parkPointer();
    qRegisterMetaType<QList<int>>();
}

void TestDrawerControlDrag::cleanup()
{
    // Rows, drags and drawers deleted later must not leak into the next test.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
}

// ------------------------------------------------------------------------
// drag and drop

#define REQUIRE_REAL_DRAG()                                                                       \
    do {                                                                                          \
        if (!realDragAvailable())                                                                 \
            QSKIP("needs the minimal platform, whose in-process drag runs QDrag::exec");          \
    } while (false)

void TestDrawerControlDrag::dragThreshold_data()
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

void TestDrawerControlDrag::dragThreshold()
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

void TestDrawerControlDrag::dragStartsOnlyOverChildRow_data()
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

void TestDrawerControlDrag::dragStartsOnlyOverChildRow()
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

void TestDrawerControlDrag::noDragWhileRootSelected()
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

void TestDrawerControlDrag::noDragWhenDraggingDisabled()
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

void TestDrawerControlDrag::dragObject()
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

void TestDrawerControlDrag::dropReportsPaths_data()
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

void TestDrawerControlDrag::dropReportsPaths()
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

void TestDrawerControlDrag::dropOnStartingDrawerIgnored_data()
{
    QTest::addColumn<QString>("target");
    QTest::newRow("its third child") << "row2";
    QTest::newRow("its own selected row") << "row1";
    QTest::newRow("its root row") << "root";
    QTest::newRow("its gap") << "gap";
}

void TestDrawerControlDrag::dropOnStartingDrawerIgnored()
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

void TestDrawerControlDrag::dropFromForeignSourceIgnored()
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

void TestDrawerControlDrag::dropDecodesText_data()
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

void TestDrawerControlDrag::dropDecodesText()
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

void TestDrawerControlDrag::dragTextCarriesCurrentChildIndex()
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

void TestDrawerControlDrag::dragCaption_data()
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

void TestDrawerControlDrag::dragCaption()
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

void TestDrawerControlDrag::namelessSelectionWritesTrace()
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

void TestDrawerControlDrag::releaseSelfDuringDrag_data()
{
    QTest::addColumn<bool>("insideDragLoop");
    QTest::newRow("inside the drag's loop") << true;
    QTest::newRow("after exec, drag object still alive") << false;
}

void TestDrawerControlDrag::releaseSelfDuringDrag()
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

DRAWER_TEST_MAIN(TestDrawerControlDrag)

#include "tst_drawercontrol_drag.moc"
