// SPDX-FileCopyrightText: 2026 The signaltreelist developers
// SPDX-License-Identifier: BSD-3-Clause

#include "LiveRoom.h"

#include "BenchContent.h"
#include "BenchSubject.h"

#include <SignalTreeList.h>

#include <QElapsedTimer>
#include <QHBoxLayout>
#include <QTextStream>
#include <QWidget>

#include <QVector>

#include <algorithm>
#include <memory>

namespace {

// Wall time of @p work until everything it posted has been delivered, in ns.
template <typename Work>
qint64 timed(Work work)
{
    QElapsedTimer timer;
    timer.start();
    work();
    BenchSubject::drainEvents();
    return timer.nsecsElapsed();
}

} // namespace

void runLiveRoom(const BenchContent &content, const QString &look, int rounds, QTextStream &out)
{
    std::unique_ptr<QWidget> window(new QWidget);
    window->resize(420, 900);
    auto *panel = new QWidget(window.get());
    (new QHBoxLayout(window.get()))->addWidget(panel);
    auto *list = new SignalTreeList(panel);
    list->initControls();
    list->updateTreeList(content.map());
    // Eight groups open, spread over the room; the others never opened.
    const int roots = content.roots();
    for (int i = 0; i < 8 && i < roots; ++i)
        list->setIsShowChildItem(i * roots / 8, true);
    window->show();
    BenchSubject::drainEvents();
    window->repaint();

    const auto line = [&out, &content, &look](const char *what, qint64 value) {
        out << "LIVE\t" << content.sizeText() << '\t' << look << '\t' << what << '\t' << value << '\n';
        out.flush();
    };
    // The median over five groups never opened before, one after another:
    // one opening alone is at the mercy of the machine.
    const auto openNever = [&](int first, const char *what) {
        QVector<qint64> times;
        for (int root = first; root < first + 5; ++root) {
            times << timed([&] {
                list->setIsShowChildItem(root, true);
                window->repaint();
            });
        }
        std::sort(times.begin(), times.end());
        line(what, times.at(times.size() / 2));
    };

    qint64 roundsTotal = 0;
    for (int round = 1; round <= rounds; ++round) {
        roundsTotal += timed([&] {
            for (int c = 0; c < content.children(); ++c) {
                st_NodeInfoSignal node = content.childNodes(0).at(c);
                node.isOnline = round % 2 == 0 ? node.isOnline : !node.isOnline;
                list->modifyItemData(QList<int>{0, c}, node);
            }
        });
        if (round == 1)
            openNever(1, "open-after-1");
        if (round == 5 || round == 50 || round == rounds)
            line(round == 5 ? "rss-5" : round == 50 ? "rss-50" : "rss-last", BenchSubject::residentKiB());
    }
    line("round-mean", roundsTotal / qMax(1, rounds));
    openNever(6, "open-after-last");
}
