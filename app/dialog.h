#pragma once

#include <QDialog>

class Ui_Dialog;

/** The About dialog: names the program and opens web pages in the user's browser. */
class Dialog final : public QDialog
{
    Q_OBJECT

public:
    /** Builds the dialog; it is left through its frame or the Escape key. */
    explicit Dialog(QWidget *parent);
    ~Dialog() override;

private slots:
    void on_checkupdates_clicked();
    void on_support_clicked();
    void on_vdjwebsite_clicked();
    void on_pushButton_clicked();
    void on_tlcforum_clicked();

private:
    Ui_Dialog *ui;
};
