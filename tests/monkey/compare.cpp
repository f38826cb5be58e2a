#include "compare.h"

#include "support/files.h"
#include "support/workspace.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QDirIterator>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpression>

#include <algorithm>

namespace {

using Rules::Cell;
using Rules::World;

/** What a part of the window shows, and what the rules tell of it. */
struct Fact
{
    QString name;
    QString seen;
    QString told;
};

using Values = QVector<QPair<int, QVariant>>;

QString number(int value)
{
    return QString::number(value);
}

QString yesNo(bool is)
{
    return is ? "yes" : "no";
}

QString combo(const QStringList &items, int index)
{
    return items.join("|") + " at " + number(index);
}

QString seenCombo(Workspace &space, const char *name)
{
    const auto *box = space.find<QComboBox>(name);
    return combo(Workspace::itemsOf(box), box->currentIndex());
}

QStringList deviceNames(const World &world)
{
    QStringList names;
    for (const Rules::Device &device : world.devices)
        names.append(device.name);
    return names;
}

QVector<Fact> factsOfPanels(Workspace &space, const World &world)
{
    const auto isShown = [&space](const char *name) { return yesNo(space.find<QWidget>(name)->isVisible()); };
    const auto isChecked = [&space](const char *name) {
        return yesNo(space.find<QAbstractButton>(name)->isChecked());
    };
    const auto label = [&space](const char *name) { return space.find<QLabel>(name)->text(); };
    const auto line = [&space](const char *name) { return space.find<QLineEdit>(name)->text(); };
    const QRect panel = space.find<QWidget>("groupBox")->geometry();
    const bool isMidi = world.isMidi;
    const QString panelWidth = isMidi ? "1071" : "341";
    return {
        {"title", space.window().windowTitle(), world.title},
        {"width", number(space.window().width()), number(world.width)},
        {"output panel",
         QString("%1 %2 %3 %4").arg(panel.x()).arg(panel.y()).arg(panel.width()).arg(panel.height()),
         "290 30 " + panelWidth + " 51"},
        {"Pad Page", isChecked("radio_outputpage"), yesNo(!isMidi)},
        {"MIDI Mapping", isChecked("radio_outputmidi"), yesNo(isMidi)},
        {"pads panel", isShown("groupBox_pads"), yesNo(!isMidi)},
        {"devices panel", isShown("groupBox_midis"), yesNo(isMidi)},
        {"grid panel", isShown("groupBox_controller"), yesNo(isMidi)},
        {"page's label", label("label_padname"), world.nameLabel},
        {"page's name", line("padsname"), world.pageName},
        {"bank's name", line("bankname"), world.bankField},
        {"8 pads", isChecked("radioButton_8pads"), yesNo(!world.has16Pads)},
        {"16 pads", isChecked("radioButton_16pads"), yesNo(world.has16Pads)},
        {"second column", yesNo(!space.padsView()->isColumnHidden(1)), yesNo(world.has16Pads)},
        {"filter", seenCombo(space, "combobox"), combo(world.pages, world.page)},
        {"bank", seenCombo(space, "bankcombo"), combo(QString("1 2 3 4 5 6 7 8").split(' '), world.bank)},
        {"device", seenCombo(space, "devicescombo"), combo(deviceNames(world), world.device)},
        {"mapper", seenCombo(space, "mididevices"), combo(world.mapperNames, world.mapper)},
        {"palette", yesNo(!space.find<QWidget>("groupBox_colors")->isHidden()), yesNo(world.showsPalette)},
        {"colours' label", label("label_10"),
         world.showsPalette ? "Default Colors" : "Colors : Device has RGB Leds."},
        {"off colour", seenCombo(space, "combo_offcolor"), combo(world.palette, world.off)},
        {"on colour", seenCombo(space, "combo_oncolor"), combo(world.palette, world.on)}};
}

QString differenceInPanels(Workspace &space, const World &world)
{
    for (const Fact &fact : factsOfPanels(space, world)) {
        if (fact.seen != fact.told)
            return fact.name + ": \"" + fact.seen + "\" instead of \"" + fact.told + "\"";
    }
    for (const QWidget *widget : space.window().findChildren<QWidget *>()) {
        if (!widget->isEnabled())
            return widget->objectName() + " is disabled";
    }
    return {};
}

/** A tip with its pictures told as "<img COLOR>". */
QString plainTip(QString tip)
{
    static const QRegularExpression picture("<img src='data:image/png;base64, ([^']*)'>");
    for (auto match = picture.match(tip); match.hasMatch(); match = picture.match(tip)) {
        const QImage image = QImage::fromData(QByteArray::fromBase64(match.captured(1).toLatin1()), "PNG");
        const QString size = image.size() == QSize(10, 10) ? "" : "of another size ";
        tip.replace(match.capturedStart(), match.capturedLength(),
                    "<img " + size + image.pixelColor(5, 5).name() + ">");
    }
    return tip;
}

/** A tip as the rules tell it, with the colours' names turned into numbers. */
QString numberedTip(QString tip)
{
    static const QRegularExpression picture("<img ([a-z]+|#[0-9A-F]*[A-F][0-9A-F]*)>");
    for (auto match = picture.match(tip); match.hasMatch(); match = picture.match(tip))
        tip.replace(match.capturedStart(1), match.capturedLength(1), QColor(match.captured(1)).name());
    return tip;
}

QVariant text(const QString &value)
{
    return value;
}

QVariant tipOrNone(const QString &tip)
{
    return tip.isEmpty() ? QVariant() : QVariant(numberedTip(tip));
}

QString differenceInCell(const QModelIndex &cell, int flags, const Values &told)
{
    const QString place = QString("%1,%2").arg(cell.row()).arg(cell.column());
    if ((int(cell.flags()) & ~int(Qt::ItemNeverHasChildren)) != flags)
        return place + ": flags " + number(int(cell.flags())) + " instead of " + number(flags);
    for (const auto &[role, value] : told) {
        QVariant seen = cell.data(role);
        if (role == Qt::ToolTipRole && seen.isValid())
            seen = plainTip(seen.toString());
        if (seen.type() != value.type() || seen != value)
            return place + ", role " + number(role) + ": \"" + seen.toString() + "\" instead of \""
                   + value.toString() + "\"";
    }
    return {};
}

Values buttonValues(const World &world, int row)
{
    const Rules::Button &button = world.buttons.at(row);
    return {{Qt::DisplayRole, text(button.title)},
            {Qt::EditRole, text(button.title)},
            {Qt::DecorationRole, QColor(button.color)},
            {Qt::ToolTipRole, text("Drag a Live Button and Drop to a VirtualDJ  Pad")},
            {Qt::BackgroundRole, QColor(Qt::white)},
            {Qt::ForegroundRole, QColor(Qt::white)},
            {Qt::CheckStateRole, button.isTicked ? 2 : 0},
            {256, text(button.page)},
            {257, text(button.title)},
            {258, text("1")},
            {259, text(number(row))},
            {260, QVariant()}};
}

Values cellValues(const Cell &cell)
{
    return {{Qt::DisplayRole, text(cell.name)},
            {Qt::EditRole, text(cell.name)},
            {Qt::DecorationRole, QColor(cell.color)},
            {Qt::BackgroundRole, QColor(Qt::white)},
            {Qt::CheckStateRole, QVariant()},
            {256, text(cell.page)},
            {257, text(cell.dspname)},
            {258, QVariant()},
            {259, text(cell.id)}};
}

Values padValues(const World &world, Rules::At at)
{
    return cellValues(world.pads.at(at))
           + Values{{Qt::ToolTipRole, tipOrNone(Rules::padTip(world, at))},
                    {Qt::ForegroundRole, QVariant()},
                    {260, QVariant()},
                    {263, QVariant()}};
}

Values keyValues(const World &world, Rules::At at)
{
    const Cell &key = world.keys.at(at);
    return cellValues(key)
           + Values{{Qt::ToolTipRole, tipOrNone(Rules::keyTip(world, at))},
                    {Qt::ForegroundRole, QColor(key.textColor)},
                    {260, text(key.avail)},
                    {261, text(key.off)},
                    {262, text(key.on)},
                    {263, text(key.blink)}};
}

QString differenceInButtons(Workspace &space, const World &world)
{
    const QAbstractItemModel *model = space.dmx();
    if (model->rowCount() != world.buttons.size() || model->columnCount() != 1)
        return number(model->rowCount()) + " Live Buttons";
    for (int row = 0; row < world.buttons.size(); ++row) {
        const QString difference = differenceInCell(model->index(row, 0), 101, buttonValues(world, row));
        if (!difference.isEmpty())
            return "Live Button " + difference;
        if (space.dmxView()->isRowHidden(row) != Rules::isRowHidden(world, row))
            return "Live Button " + number(row) + " is hidden or shown wrongly";
    }
    return {};
}

QString differenceInPads(Workspace &space, const World &world)
{
    const QAbstractItemModel *model = space.pads();
    if (model->rowCount() != 64 || model->columnCount() != 2)
        return number(model->rowCount()) + " rows of pads";
    for (const Rules::At at : world.pads.places()) {
        if (space.padsView()->isRowHidden(at.row) != (at.row / 8 != world.bank))
            return "row " + number(at.row) + " of the pads is hidden or shown wrongly";
        const QString difference = differenceInCell(model->index(at.row, at.col),
                                                    Rules::padFlags(world.pads.at(at)), padValues(world, at));
        if (!difference.isEmpty())
            return "pad " + difference;
    }
    return {};
}

QString differenceInKeys(Workspace &space, const World &world)
{
    const QAbstractItemModel *model = space.grid();
    if (model->rowCount() != 12 || model->columnCount() != 12)
        return number(model->rowCount()) + " rows of keys";
    const auto isGap = [](int position) { return position == 1 || position == 10; };
    for (const Rules::At at : world.keys.places()) {
        if (space.gridView()->rowHeight(at.row) != (isGap(at.row) ? 5 : 30)
            || space.gridView()->columnWidth(at.col) != (isGap(at.col) ? 5 : 95))
            return "row or column " + number(at.row) + " of the grid has another size";
        const QString difference = differenceInCell(model->index(at.row, at.col),
                                                    Rules::keyFlags(world.keys.at(at)), keyValues(world, at));
        if (!difference.isEmpty())
            return "key " + difference;
    }
    return {};
}

/** What is hidden is neither current nor selected. */
QString hiddenInUse(Workspace &space, const World & /*world*/)
{
    for (const QTableView *view : {space.dmxView(), space.padsView()}) {
        QModelIndexList used = view->selectionModel()->selectedIndexes();
        if (view->currentIndex().isValid())
            used += view->currentIndex();
        for (const QModelIndex &cell : qAsConst(used)) {
            if (view->isRowHidden(cell.row()) || view->isColumnHidden(cell.column()))
                return view->objectName() + " uses its hidden row " + number(cell.row());
        }
    }
    return {};
}

} // namespace

QString Compare::window(Workspace &space, const World &world)
{
    for (const auto look :
         {hiddenInUse, differenceInPanels, differenceInButtons, differenceInPads, differenceInKeys}) {
        QString found = look(space, world);
        if (!found.isEmpty())
            return found;
    }
    return {};
}

QString Compare::files(const World &world)
{
    QStringList paths;
    for (const QString &folder : {world.projectFolder, world.padsFolder, world.mapperFolder}) {
        QDirIterator files(folder, QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
        while (files.hasNext())
            paths.append(files.next());
    }
    std::sort(paths.begin(), paths.end());
    if (paths != world.files.keys())
        return "files [" + paths.join("|") + "] instead of [" + world.files.keys().join("|") + "]";
    for (auto file = world.files.cbegin(); file != world.files.cend(); ++file) {
        const QString found = difference(textOf(bytesOf(file.key())), file.value().toUtf8());
        if (!found.isEmpty())
            return file.key() + ": " + found;
    }
    return {};
}
