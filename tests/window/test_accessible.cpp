#include "app/dialog.h"
#include "app/messagebox.h"
#include "support/devices.h"
#include "support/workspace.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QGroupBox>
#include <QLabel>

#include <algorithm>

namespace {

QStringList labelsOf(QWidget *widget)
{
    QStringList labels;
    for (const auto &[label, relation] :
         QAccessible::queryAccessibleInterface(widget)->relations(QAccessible::Label))
        labels += label->text(QAccessible::Name);
    return labels;
}

/** What a screen reader says of a widget: the labels beside it, its name, what its tool tip tells. */
QString spoken(QWidget *widget)
{
    const QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(widget);
    QStringList parts = labelsOf(widget);
    parts << accessible->text(QAccessible::Name) << accessible->text(QAccessible::Description);
    parts.removeAll(QString());
    return parts.join(", ");
}

/** What is in sight and can get the focus; not what lies beneath another widget. */
QWidgetList controlsOf(const QWidget &window)
{
    QWidgetList controls;
    for (QWidget *widget : window.findChildren<QWidget *>()) {
        const QWidget *top = window.childAt(widget->mapTo(&window, widget->rect().center()));
        const bool isOnTop = top && (top == widget || widget->isAncestorOf(top));
        if ((widget->focusPolicy() & Qt::StrongFocus) && !widget->focusProxy() && widget->isVisible()
            && isOnTop)
            controls += widget;
    }
    return controls;
}

/** What is wrong with the names of some controls; empty if each has one of its own. */
QString badNames(const QWidgetList &controls)
{
    QMap<QString, QString> seen;
    for (QWidget *control : controls) {
        const QString name = spoken(control);
        if (name.trimmed().isEmpty())
            return control->objectName() + " has no name";
        if (seen.contains(name))
            return control->objectName() + " and " + seen.value(name) + " are both called " + name;
        seen.insert(name, control->objectName());
    }
    return controls.isEmpty() ? "no controls" : QString();
}

/** Where repeated presses of a key lead from a widget, until it has the focus again; nowhere if never. */
QWidgetList walk(QWidget *from, Qt::Key key)
{
    QWidgetList visited;
    from->setFocus(Qt::TabFocusReason);
    for (QWidget *at = QApplication::focusWidget(); at && !visited.contains(at);
         at = QApplication::focusWidget()) {
        visited += at;
        QTest::keyClick(at, key, key == Qt::Key_Backtab ? Qt::ShiftModifier : Qt::NoModifier);
    }
    return QApplication::focusWidget() == from ? visited : QWidgetList{from};
}

/** The round that the Tab key makes, as object names, where Shift+Tab makes it backwards; else both. */
QString round(QWidget *from)
{
    const auto named = [](const QWidgetList &widgets) {
        QStringList names;
        for (const QWidget *widget : widgets)
            names += widget->objectName();
        return names.join(' ');
    };
    const QString forth = named(walk(from, Qt::Key_Tab));
    QWidgetList back = walk(from, Qt::Key_Backtab);
    std::reverse(back.begin() + 1, back.end());
    return forth == named(back) ? forth : forth + " / " + named(back);
}

} // namespace

/** What a person without a mouse or without sight meets: names of the controls, and the way of the Tab key. */
class TestAccessible final : public QObject
{
    Q_OBJECT

private slots:
    void modes_data();
    void modes();
    void fieldsAndTablesHaveNames();
    void labelsBelongToFields();
    void focusStartsOnLiveButtons();
    void aboutDialog();
    void messageBox();
};

void TestAccessible::modes_data()
{
    QTest::addColumn<bool>("isMidi");
    QTest::addColumn<int>("device");
    QTest::addColumn<QString>("stops"); // of the Tab key, in the order in which one reads
    QTest::newRow("pads")
        << false << Devices::Akai
        << "loadini combobox dmxlistview radio_outputpage radioButton_8pads cleanpads_button "
           "bankcombo bankname vdjlistview pushButton_2 padsname";
    QTest::newRow("keys")
        << true << Devices::Akai
        << "loadini combobox dmxlistview radio_outputmidi devicescombo mididevices combo_offcolor "
           "combo_oncolor cleanmidi_button tablecontroller pushButton_2 padsname";
    QTest::newRow("keys of a device without a palette")
        << true << Devices::MiniMk3
        << "loadini combobox dmxlistview radio_outputmidi devicescombo mididevices cleanmidi_button "
           "tablecontroller pushButton_2 padsname";
}

void TestAccessible::modes()
{
    QFETCH(const bool, isMidi);
    QFETCH(const int, device);
    QFETCH(const QString, stops);
    Workspace space;
    QVERIFY(space.click("radio_outputmidi") && space.choose("devicescombo", device));
    QVERIFY(isMidi || space.click("radio_outputpage"));
    for (const bool isFilled : {false, true}) {
        QVERIFY(!isFilled || (space.loadSomeShow() && space.put(isMidi ? "0@2,2" : "0@0,0")));
        QCOMPARE(badNames(controlsOf(space.window())), QString());
        QCOMPARE(round(space.find<QWidget>("loadini")), stops);
    }
}

/** On some systems the name of a combo box is what it shows; then only its label tells it from others. */
void TestAccessible::fieldsAndTablesHaveNames()
{
    Workspace space;
    QStringList names;
    for (const QWidget *widget : space.window().findChildren<QWidget *>()) {
        if (!widget->accessibleName().isEmpty())
            names += widget->objectName() + ": " + widget->accessibleName();
    }
    names.sort();
    QCOMPARE(names, (QStringList{"bankcombo: Bank", "bankname: Bank name",
                                 "combo_offcolor: Default color of a key that is off",
                                 "combo_oncolor: Default color of a key that is on", "combobox: Live Pages",
                                 "devicescombo: Device", "dmxlistview: Live Buttons", "groupBox_4: Layout",
                                 "groupBox_colors: Default Colors", "mididevices: Mapping",
                                 "padsname: Name of the Pads Page or mapping",
                                 "tablecontroller: Keys of the device", "vdjlistview: Pads"}));
}

void TestAccessible::labelsBelongToFields()
{
    Workspace space;
    const QMap<QByteArray, QByteArray> labelOf = {
        {"combobox", "label_6"},         {"bankcombo", "bank_label"},  {"bankname", "label_3"},
        {"devicescombo", "label_7"},     {"combo_offcolor", "label"},  {"combo_oncolor", "label_2"},
        {"mididevices", "bank_label_3"}, {"padsname", "label_padname"}};
    for (auto field = labelOf.cbegin(); field != labelOf.cend(); ++field) {
        QStringList labels = labelsOf(space.find<QWidget>(field.key()));
        labels.removeOne(space.find<QGroupBox>("groupBox_2")->title()); // the panel's
        QCOMPARE(labels, QStringList{space.find<QLabel>(field.value())->text()});
    }
}

void TestAccessible::focusStartsOnLiveButtons()
{
    Workspace space;
    QCOMPARE(space.window().focusWidget(), space.dmxView());
    QCOMPARE(Workspace::focused(), QString("dmxlistview"));
}

void TestAccessible::aboutDialog()
{
    Dialog dialog(nullptr);
    dialog.show();
    QApplication::setActiveWindow(&dialog);
    QCOMPARE(badNames(controlsOf(dialog)), QString());
    for (QLabel *label : dialog.findChildren<QLabel *>()) {
        const QString name = spoken(label);
        QVERIFY2(!name.isEmpty() && !name.contains(QChar::ObjectReplacementCharacter) && !name.contains('<'),
                 qPrintable(label->objectName() + " reads " + name));
    }
    QCOMPARE(round(dialog.findChild<QWidget *>("checkupdates")),
             QString("checkupdates support vdjwebsite pushButton tlcforum"));
}

/** Its buttons stand in the order of the desktop. */
void TestAccessible::messageBox()
{
    QString faults = "no box";
    QTimer::singleShot(0, qApp, [&faults] {
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        if (!box)
            return;
        QApplication::setActiveWindow(box);
        QWidgetList buttons;
        for (QAbstractButton *button : box->buttons())
            buttons.append(button);
        std::sort(buttons.begin(), buttons.end(),
                  [](const QWidget *first, const QWidget *second) { return first->x() < second->x(); });
        faults = badNames(QWidgetList{box} + buttons);
        if (buttons.size() != 3 || walk(buttons.first(), Qt::Key_Tab) != buttons)
            faults += "Tab goes elsewhere";
        box->reject();
    });
    MessageBox::ask({}, "Question", {}, QMessageBox::Save | QMessageBox::Yes | QMessageBox::Cancel,
                    QMessageBox::Cancel);
    QCOMPARE(faults, QString());
}

QTEST_MAIN(TestAccessible)
#include "test_accessible.moc"
