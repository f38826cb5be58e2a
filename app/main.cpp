#include "app/mainwindow.h"
#include "app/scaling.h"

#include <QApplication>

int main(int argc, char *argv[])
{
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QGuiApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
    Scaling::StartVariables variables;

    QApplication application(argc, argv);
    MainWindow window(nullptr);
    window.show();
    variables.takeBack();
    return QApplication::exec();
}
