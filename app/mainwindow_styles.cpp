#include "app/mainwindow.h"

#include "app/stylesheets.h"
#include "app/ui_mainwindow.h"

#include <QScrollBar>

namespace {

/** Gives widgets their sheet, where they lack it: styled anew, their children would lose the window's font. */
void setSheets(std::initializer_list<QWidget *> widgets, const char *sheet)
{
    for (QWidget *widget : widgets) {
        if (widget->styleSheet() != QLatin1String(sheet))
            widget->setStyleSheet(sheet);
    }
}

} // namespace

void MainWindow::setstyles()
{
    // First of all: later it would style every widget anew that has a sheet of its own by then, and take the
    // window's font away from it.
    setSheets({ui->centralWidget}, StyleSheet::centralWidget);

    setSheets({ui->bankcombo, ui->combobox, ui->mididevices, ui->devicescombo, ui->combo_offcolor,
               ui->combo_oncolor},
              StyleSheet::comboBox);
    setSheets({ui->radio_outputmidi, ui->radio_outputpage, ui->radioButton_16pads, ui->radioButton_8pads},
              StyleSheet::radioButton);
    setSheets({ui->menuPage, ui->menuHelp}, StyleSheet::menu);
    setSheets({ui->menuBar}, StyleSheet::menuBar);

    setSheets({ui->pushButton_2, ui->cleanmidi_button, ui->cleanpads_button, ui->loadini},
              StyleSheet::pushButton);
    ui->cleanmidi_button->setToolTip("Clean content from All Buttons");
    ui->cleanpads_button->setToolTip("Clean content from All Pads");

    setSheets({ui->padsname, ui->bankname}, StyleSheet::lineEdit);
    setSheets({ui->label_padname, ui->label_3, ui->label, ui->label_2, ui->label_5, ui->label_6, ui->label_7,
               ui->bank_label, ui->bank_label_3, ui->label_9, ui->label_10},
              StyleSheet::label);
    setSheets({ui->groupBox, ui->groupBox_2, ui->groupBox_3, ui->groupBox_4, ui->groupBox_midis,
               ui->groupBox_pads, ui->groupBox_controller},
              StyleSheet::groupBox);
    setSheets({ui->vdjlistview, ui->dmxlistview}, StyleSheet::listView);
    setSheets({ui->tablecontroller}, StyleSheet::controllerGrid);
    setSheets({ui->dmxlistview->verticalScrollBar(), ui->vdjlistview->verticalScrollBar(),
               ui->tablecontroller->verticalScrollBar()},
              StyleSheet::scrollBar);
}
