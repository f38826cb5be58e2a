#include "app/mainwindow.h"

#include "app/stylesheets.h"
#include "app/ui_mainwindow.h"

#include <QScrollBar>

namespace {

/** Gives a widget its sheet, unless it has it already: styled anew, its children would lose the window's font. */
void setSheet(QWidget *widget, const char *sheet)
{
    if (widget->styleSheet() != QLatin1String(sheet))
        widget->setStyleSheet(sheet);
}

} // namespace

void MainWindow::setstyles()
{
    // First of all: later it would style every widget anew that has a sheet of its own by then, and take the
    // window's font away from it.
    setSheet(ui->centralWidget, StyleSheet::centralWidget);

    for (QWidget *combo : {ui->bankcombo, ui->combobox, ui->mididevices, ui->devicescombo, ui->combo_offcolor,
                           ui->combo_oncolor})
        setSheet(combo, StyleSheet::comboBox);

    for (QWidget *radio :
         {ui->radio_outputmidi, ui->radio_outputpage, ui->radioButton_16pads, ui->radioButton_8pads})
        setSheet(radio, StyleSheet::radioButton);

    for (QWidget *menu : {ui->menuPage, ui->menuHelp})
        setSheet(menu, StyleSheet::menu);
    setSheet(ui->menuBar, StyleSheet::menuBar);

    setSheet(ui->pushButton_2, StyleSheet::pushButton);
    setSheet(ui->cleanmidi_button, StyleSheet::pushButton);
    ui->cleanmidi_button->setToolTip("Clean content from All Buttons");
    setSheet(ui->cleanpads_button, StyleSheet::pushButton);
    ui->cleanpads_button->setToolTip("Clean content from All Pads");
    setSheet(ui->loadini, StyleSheet::pushButton);

    for (QWidget *edit : {ui->padsname, ui->bankname})
        setSheet(edit, StyleSheet::lineEdit);

    for (QWidget *label : {ui->label_padname, ui->label_3, ui->label, ui->label_2, ui->label_5, ui->label_6,
                           ui->label_7, ui->bank_label, ui->bank_label_3, ui->label_9, ui->label_10})
        setSheet(label, StyleSheet::label);

    for (QWidget *box : {ui->groupBox, ui->groupBox_2, ui->groupBox_3, ui->groupBox_4, ui->groupBox_midis,
                         ui->groupBox_pads, ui->groupBox_controller})
        setSheet(box, StyleSheet::groupBox);

    setSheet(ui->vdjlistview, StyleSheet::listView);
    setSheet(ui->dmxlistview, StyleSheet::listView);
    setSheet(ui->dmxlistview->verticalScrollBar(), StyleSheet::scrollBar);
    setSheet(ui->vdjlistview->verticalScrollBar(), StyleSheet::scrollBar);

    setSheet(ui->tablecontroller, StyleSheet::controllerGrid);
    setSheet(ui->tablecontroller->verticalScrollBar(), StyleSheet::scrollBar);
}
