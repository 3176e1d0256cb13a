// SPDX-License-Identifier: MIT
#include "aircraft_loader/available_list.h"

#include "aircraft_loader/title_match.h"
#include "platform/basic.h"
#include "platform/controls/control_state.h"
#include "platform/controls/progress.h"

#include <QHash>
#include <QScopeGuard>
#include <QSet>

#include "ui_aircraft_loader_page.h"

using namespace Qt::StringLiterals;

namespace
{

constexpr QLatin1StringView allUsedNotice = "All Available Aircraft have been used"_L1;

/// Entries that are ticked, and how often each.
using Ticks = QHash<QString, int>;

Ticks ticksFrom(const ListBox &list, int first)
{
    Ticks ticks;
    for (int i = first; i < list.count(); ++i) {
        ticks[list.text(i)] += list.selected(i) ? 1 : 0;
    }
    return ticks;
}

/// Entries of one text are all the same: the first of them are ticked.
void tick(ListBox &list, Ticks ticks)
{
    for (int i = 0; i < list.count(); ++i) {
        if (ticks[list.text(i)]-- > 0) {
            list.setSelected(i, true);
        }
    }
}

} // namespace

AvailableList::AvailableList(Ui::AircraftLoaderPage &ui, QObject *parent)
    : QObject(parent), m_ui(ui)
{
    using List = AvailableList;
    connect(ui.Tab0List2, &ListBox::entryClicked, this, &List::Tab0List2_Click);
    // Whoever ticks with the space bar goes on ticking: the button must not take the focus away.
    connect(ui.Tab0List2, &ListBox::entryTickedByKey, this, &List::enableAddAircraft);
    connect(ui.optAll, &QRadioButton::clicked, this, &List::optAll_Click);
    connect(ui.optClear, &QRadioButton::clicked, this, &List::optClear_Click);
}

void AvailableList::showLists(bool visible)
{
    m_ui.Tab0List2->setVisible(visible);
    m_ui.Tab0List3->setVisible(visible);
    m_ui.Tab0Label1->setVisible(visible);
    m_ui.Tab0Label2->setVisible(visible);
    m_ui.Tab0Label9->setVisible(!visible);
    m_ui.ProgressBar1->setVisible(!visible);
    m_ui.ProgressBar1->setValue(0);
}

void AvailableList::showCount()
{
    m_ui.Tab0Label1->setText(caption + QString::number(m_ui.Tab0List2->count()));
}

void AvailableList::FindAvailableAI()
{
    SearchActive = true;
    const auto done = qScopeGuard([this] { SearchActive = false; });
    if (m_ui.Tab0List3->count() == 0) {
        return;
    }
    const QStringList available = m_ui.Tab0List2->items();
    const TitleMatch match = matchTitles(m_ui.Tab0List3->items(), available);
    QStringList unused;
    for (qsizetype i = 0; i < available.size(); ++i) {
        if (!match.used.testBit(i)) {
            unused += available[i];
        }
    }
    m_ui.Tab0List2->setItems(unused);
    if (unused.size() < available.size()) {
        m_ui.Tab0Label1->setText(caption + QString::number(unused.size()));
    }
    if (match.failure) {
        throw RuntimeError(*match.failure);
    }
    m_ui.Tab0List2->setListIndex(-1);
    m_ui.Tab0List3->setListIndex(-1);
    m_ui.Tab0Label1->setText(u"Available Aircraft:"_s +
                             basic::str(static_cast<int>(m_ui.Tab0List2->count())));
    if (m_ui.Tab0List2->count() == 0) {
        m_ui.Tab0List2->addItem(allUsedNotice);
    }
}

void AvailableList::replace(const QStringList &entries)
{
    Ticks ticks = ticksFrom(*m_ui.Tab0List2, 0);
    QSet<QString> titles; // in their quotes
    for (const QString &line : m_ui.Tab0List3->items()) {
        titles += line.mid(line.indexOf(u'"'));
    }
    ticks.removeIf([&](Ticks::iterator tick) {
        return titles.contains(u'"' + tick.key().first(tick.key().lastIndexOf(u' ')) + u'"');
    });
    const auto restore = qScopeGuard([&] { tick(*m_ui.Tab0List2, ticks); });
    m_ui.Tab0List2->setItems(entries);
    FindAvailableAI();
}

void AvailableList::takeOutWritten(int end)
{
    const Ticks ticks = ticksFrom(*m_ui.Tab0List2, end);
    QStringList left;
    for (int i = 0; i < m_ui.Tab0List2->count(); ++i) {
        if (i >= end || !m_ui.Tab0List2->selected(i)) {
            left += m_ui.Tab0List2->text(i);
        }
    }
    const qsizetype written = m_ui.Tab0List2->count() - left.size();
    m_ui.Tab0List2->setItems(left);
    m_ui.Tab0List2->setListIndex(end - static_cast<int>(written));
    tick(*m_ui.Tab0List2, ticks);
    showCount();
    enableAddAircraft();
}

void AvailableList::Tab0List2_Click()
{
    if (!SearchActive && enableAddAircraft()) {
        focusIfShown(m_ui.cmdAddAI);
    }
}

bool AvailableList::enableAddAircraft()
{
    const bool canAdd = m_ui.Tab0List2->selectedCount() > 0 &&
                        m_ui.Tab0List2->text(m_ui.Tab0List2->listIndex()) != allUsedNotice;
    m_ui.cmdAddAI->setEnabled(canAdd);
    return canAdd;
}

void AvailableList::checkAll(bool on)
{
    constexpr int step = 5000; // entries ticked between two looks at the clock
    const int count = m_ui.Tab0List2->count();
    showLists(false);
    Progress progress(m_ui.ProgressBar1, count);
    for (int first = 0; first < count; first += step) {
        m_ui.Tab0List2->setSelected(first, qMin(first + step, count) - 1, on);
        progress.show(first);
    }
    m_ui.Tab0List2->setListIndex(count - 1); // ticking one after the other ends on the last
    showLists(true);
    Tab0List2_Click();
}
