#include "app/mainwindow.h"

#include "app/stylesheets.h"
#include "app/ui_mainwindow.h"

#include <QScrollBar>

void MainWindow::setstyles()
{
    // First of all, since it would style every widget anew that has a sheet of its own by then.
    ui->centralWidget->setStyleSheet(StyleSheet::centralWidget);

    for (QWidget *combo : {ui->bankcombo, ui->combobox, ui->mididevices, ui->devicescombo, ui->combo_offcolor,
                           ui->combo_oncolor})
        combo->setStyleSheet(StyleSheet::comboBox);

    for (QWidget *radio :
         {ui->radio_outputmidi, ui->radio_outputpage, ui->radioButton_16pads, ui->radioButton_8pads})
        radio->setStyleSheet(StyleSheet::radioButton);

    for (QWidget *menu : {ui->menuPage, ui->menuHelp})
        menu->setStyleSheet(StyleSheet::menu);
    ui->menuBar->setStyleSheet(StyleSheet::menuBar);

    ui->pushButton_2->setStyleSheet(StyleSheet::pushButton);
    ui->cleanmidi_button->setStyleSheet(StyleSheet::pushButton);
    ui->cleanmidi_button->setToolTip("Clean content from All Buttons");
    ui->cleanpads_button->setStyleSheet(StyleSheet::pushButton);
    ui->cleanpads_button->setToolTip("Clean content from All Pads");
    ui->loadini->setStyleSheet(StyleSheet::pushButton);

    for (QWidget *edit : {ui->padsname, ui->bankname})
        edit->setStyleSheet(StyleSheet::lineEdit);

    for (QWidget *label : {ui->label_padname, ui->label_3, ui->label, ui->label_2, ui->label_5, ui->label_6,
                           ui->label_7, ui->bank_label, ui->bank_label_3, ui->label_9, ui->label_10})
        label->setStyleSheet(StyleSheet::label);

    for (QWidget *box : {ui->groupBox, ui->groupBox_2, ui->groupBox_3, ui->groupBox_4, ui->groupBox_midis,
                         ui->groupBox_pads, ui->groupBox_controller})
        box->setStyleSheet(StyleSheet::groupBox);

    ui->vdjlistview->setStyleSheet(StyleSheet::listView);
    ui->dmxlistview->setStyleSheet(StyleSheet::listView);
    ui->dmxlistview->verticalScrollBar()->setStyleSheet(StyleSheet::scrollBar);
    ui->vdjlistview->verticalScrollBar()->setStyleSheet(StyleSheet::scrollBar);

    ui->tablecontroller->setStyleSheet(StyleSheet::controllerGrid);
    ui->tablecontroller->verticalScrollBar()->setStyleSheet(StyleSheet::scrollBar);
}
