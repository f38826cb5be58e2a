#include "player.h"

#include "support/boxes.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QDragLeaveEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMetaEnum>
#include <QMimeData>

namespace {

QModelIndex cellAt(const QTableView *view, const QString &place)
{
    return view->model()->index(place.section(',', 0, 0).toInt(), place.section(',', 1).toInt());
}

/** The view finds the cell there, and the cell's rectangle ends above. */
QPoint lineBelow(const QTableView *view, const QModelIndex &cell)
{
    const QRect rect = view->visualRect(cell);
    return {rect.center().x(), rect.bottom() + 1};
}

/** Entries in words; those of submenus with the submenu's text in front. */
QStringList entriesOf(const QMenu *menu, const QString &front = {})
{
    QStringList entries;
    for (const QAction *action : menu->actions()) {
        const QString box = action->isChecked() ? "[x] " : "[ ] ";
        const QString text = action->isSeparator() ? "---" : action->text();
        entries.append(front + (action->isCheckable() ? box : QString()) + text);
        if (action->menu())
            entries += entriesOf(action->menu(), text + "/");
    }
    return entries;
}

/** Buttons by their names with blanks between; none for "Escape". */
QMessageBox::StandardButtons buttonsNamed(QString names)
{
    const QMetaEnum all = QMetaEnum::fromType<QMessageBox::StandardButtons>();
    const int value = names == "Escape" ? 0 : all.keysToValue(qPrintable(names.replace(' ', '|')));
    return static_cast<QMessageBox::StandardButtons>(value);
}

QMessageBox::StandardButton buttonNamed(const QString &name)
{
    return static_cast<QMessageBox::StandardButton>(int(buttonsNamed(name)));
}

Boxes::Box boxFor(const Rules::Question &question)
{
    Boxes::Box box{question.text, question.informative, buttonsNamed(question.buttons),
                   buttonNamed(question.buttons.section(' ', -1)), buttonNamed(question.answer)};
    if (question.isWarning) {
        box.title = "Zarvex";
        box.icon = QMessageBox::Warning;
        box.isStyled = false;
    }
    return box;
}

/** Nowhere is a blank colour told from black. */
QColor colorNamed(const QString &name)
{
    return name.isEmpty() ? QColor(Qt::black) : QColor(name);
}

} // namespace

void Player::expect(const Rules::Question &question)
{
    switch (question.kind) {
    case Rules::Question::Box:
        return m_space.dialogs.expect(boxFor(question));
    case Rules::Question::Folder:
        return m_space.dialogs.expect(Boxes::showDialog(m_space, question.answer));
    case Rules::Question::SaveFile:
        return m_space.dialogs.expect(Boxes::saveDialog(m_space, question.answer));
    case Rules::Question::OpenFile:
        return m_space.dialogs.expect(Boxes::loadDialog(m_space, question.answer));
    case Rules::Question::Color:
        return m_space.dialogs.expect(Boxes::colorDialog(colorNamed(question.text), QColor(question.answer)));
    }
}

QString Player::play(const Gesture &gesture, const Rules::Outcome &told)
{
    for (const Rules::Question &question : told.questions)
        expect(question);
    QString fault;
    const bool isDrop = gesture.verb.startsWith("drop-") || gesture.verb.startsWith("move-");
    if (isDrop) {
        if (dropOn(gesture, gesture.verb.endsWith("-line")) != told.isTaken)
            fault = told.isTaken ? "the drop is refused" : "the drop is taken";
    } else if (gesture.verb.startsWith("menu-")) {
        fault = useMenu(gesture, told);
    } else if (!pressKeys(gesture) && !setPanel(gesture) && !command(gesture)) {
        fault = "cannot be done";
    }
    QApplication::processEvents();
    if (!m_space.dialogs.faults().isEmpty())
        return "dialogs: " + m_space.dialogs.faults();
    if (fault.isEmpty() && m_space.window().isVisible() == told.hasLeft)
        fault = told.hasLeft ? "the window stays" : "the window is gone";
    if (!told.hasLeft)
        m_space.activate(); // a menu or dialog that closed leaves no window active
    if (fault.isEmpty() && !told.focus.isEmpty() && Workspace::focused() != told.focus)
        fault = "focus on " + Workspace::focused() + " instead of " + told.focus;
    if (fault.isEmpty() && told.hasLeft)
        m_space.restart();
    return fault;
}

bool Player::dropOn(const Gesture &gesture, bool isLine)
{
    const bool isOnPads = gesture.verb.contains("pad");
    QTableView *onto = isOnPads ? m_space.padsView() : m_space.gridView();
    const bool isMove = gesture.verb.startsWith("move-");
    const QModelIndex from =
        isMove ? cellAt(onto, gesture.text("from")) : m_space.dmx()->index(gesture.number("button"), 0);
    const QModelIndex target = cellAt(onto, gesture.text(isMove ? "to" : "at"));
    if (!from.flags().testFlag(Qt::ItemIsDragEnabled))
        return false;
    m_space.activate();
    const std::unique_ptr<QMimeData> data(from.model()->mimeData({from}));
    const QModelIndex first = target.sibling(target.row(), isOnPads ? 0 : target.column());
    const QPoint point = isLine ? lineBelow(onto, first) : onto->visualRect(target).center();
    if (Workspace::drop(data.get(), onto, point))
        return true;
    QDragLeaveEvent leave; // what was refused is carried away
    QApplication::sendEvent(onto->viewport(), &leave);
    return false;
}

bool Player::rename(const Gesture &gesture)
{
    QTableView *view = m_space.padsView();
    const QPoint point = view->visualRect(cellAt(view, gesture.text("at"))).center();
    m_space.activate();
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, point);
    QTest::mouseDClick(view->viewport(), Qt::LeftButton, {}, point);
    auto *editor = view->viewport()->findChild<QLineEdit *>();
    if (!editor)
        return false;
    editor->selectAll();
    QTest::keyClick(editor, Qt::Key_Backspace);
    QTest::keyClicks(editor, gesture.text("name"));
    QTest::keyClick(editor, gesture.text("key") == "Return" ? Qt::Key_Return : Qt::Key_Escape);
    QApplication::processEvents(); // the text is taken over later
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return !view->viewport()->findChild<QLineEdit *>();
}

bool Player::typeName(const char *edit, const QString &name)
{
    if (!m_space.type(edit, name))
        return false;
    QTest::keyClick(m_space.find<QLineEdit>(edit), Qt::Key_Return);
    m_space.dmxView()->setFocus(Qt::MouseFocusReason);
    return true;
}

/** Copies and pastes, or deletes what is selected. */
bool Player::pressKeys(const Gesture &gesture)
{
    const bool isDeleted = gesture.verb.startsWith("delete-");
    if (!isDeleted && !gesture.verb.startsWith("paste-"))
        return false;
    QTableView *view = gesture.verb.endsWith("-pad") ? m_space.padsView() : m_space.gridView();
    const auto press = [](QTableView *table, const QModelIndex &cell, Qt::Key key) {
        table->setFocus(Qt::OtherFocusReason);
        table->selectionModel()->setCurrentIndex(cell, QItemSelectionModel::ClearAndSelect);
        QTest::keyClick(table, key, Qt::ControlModifier);
    };
    m_space.activate();
    if (isDeleted) {
        view->setFocus(Qt::OtherFocusReason);
        Workspace::select(view, gesture.text("selected"));
        QTest::keyClick(view, Qt::Key_Delete);
        return true;
    }
    QApplication::clipboard()->clear();
    if (gesture.words.contains("button"))
        press(m_space.dmxView(), m_space.dmx()->index(gesture.number("button"), 0), Qt::Key_C);
    else
        press(view, cellAt(view, gesture.text("from")), Qt::Key_C);
    press(view, cellAt(view, gesture.text("at")), Qt::Key_V);
    return true;
}

QString Player::useMenu(const Gesture &gesture, const Rules::Outcome &told)
{
    QTableView *view = gesture.verb == "menu-pad" ? m_space.padsView() : m_space.gridView();
    if (gesture.verb == "menu-key")
        Workspace::select(view, gesture.text("selected"));
    QMenu *menu = m_space.rightClick(view, cellAt(view, gesture.text("at")));
    const QString fault = useMenu(menu, told);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); // the menu goes
    if (fault.isEmpty() && QApplication::activePopupWidget())
        return "a menu stays open";
    return fault;
}

QString Player::useMenu(QMenu *menu, const Rules::Outcome &told)
{
    const QStringList entries = menu ? entriesOf(menu) : QStringList();
    if (entries != told.menu)
        return "menu [" + entries.join("|") + "] instead of [" + told.menu.join("|") + "]";
    if (menu && told.pick.isEmpty())
        menu->close();
    if (!told.pick.isEmpty() && !Workspace::pick(menu, told.pick))
        return "cannot pick " + told.pick.join("/");
    return {};
}

bool Player::setPanel(const Gesture &gesture)
{
    static const QMap<QString, const char *> combos = {
        {"bank", "bankcombo"},           {"page", "combobox"},
        {"device", "devicescombo"},      {"mapper", "mididevices"},
        {"off-color", "combo_offcolor"}, {"on-color", "combo_oncolor"}};
    if (combos.contains(gesture.verb))
        return m_space.choose(combos.value(gesture.verb), gesture.number("index"));
    if (gesture.verb == "output")
        return m_space.click(gesture.text("output") == "midi" ? "radio_outputmidi" : "radio_outputpage");
    if (gesture.verb == "layout")
        return m_space.click(gesture.number("pads") == 16 ? "radioButton_16pads" : "radioButton_8pads");
    if (gesture.verb == "name-bank")
        return typeName("bankname", gesture.text("name"));
    if (gesture.verb == "name-page")
        return typeName("padsname", gesture.text("name"));
    return gesture.verb == "rename" && rename(gesture);
}

bool Player::command(const Gesture &gesture)
{
    static const QMap<QString, const char *> buttons = {
        {"clean-pads", "cleanpads_button"}, {"clean-keys", "cleanmidi_button"}, {"load-show", "loadini"}};
    static const QMap<QString, const char *> actions = {{"new-project", "actionNew_2"},
                                                        {"load-project", "actionLoad_Project"},
                                                        {"save", "actionSave_2"},
                                                        {"export", "actionExport"},
                                                        {"exit", "actionExit"}};
    if (gesture.verb == "export" && gesture.text("by") == "button")
        return m_space.click("pushButton_2");
    if (buttons.contains(gesture.verb))
        return m_space.click(buttons.value(gesture.verb));
    m_space.activate();
    if (gesture.verb == "close") {
        m_space.window().close();
        return true;
    }
    if (!actions.contains(gesture.verb))
        return false;
    m_space.trigger(actions.value(gesture.verb));
    return true;
}
