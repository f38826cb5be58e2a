#include "app/dialog.h"

#include "app/sites.h"
#include "app/stylesheets.h"
#include "app/ui_dialog.h"

#include <QDesktopServices>
#include <QUrl>

namespace {

void showPage(const QString &page)
{
    QDesktopServices::openUrl(QUrl(page, QUrl::TolerantMode));
}

} // namespace

Dialog::Dialog(QWidget *parent) : QDialog(parent), ui(new Ui_Dialog)
{
    ui->setupUi(this);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    setWindowTitle("Zarvex - About");
    setStyleSheet(StyleSheet::aboutDialog);
    setSizeGripEnabled(false);
}

Dialog::~Dialog()
{
    delete ui;
}

void Dialog::on_checkupdates_clicked()
{
    showPage(QString(Sites::VirtualDj) + "/plugins/index.html?addonid=" + Sites::AddonNumber);
}

void Dialog::on_support_clicked()
{
    showPage(QString(Sites::VirtualDj) + "/forums/234014/Addons/Zarvex.html");
}

void Dialog::on_vdjwebsite_clicked()
{
    showPage(Sites::VirtualDj);
}

void Dialog::on_pushButton_clicked()
{
    showPage(QString(Sites::Os2l) + "/");
}

void Dialog::on_tlcforum_clicked()
{
    showPage(Sites::Lighting);
}
