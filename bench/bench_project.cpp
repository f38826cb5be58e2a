// Loading a project against parsing it and loading its show, and saving one against writing its bytes.

#include "cells.h"
#include "files.h"
#include "home.h"
#include "measure.h"
#include "showfile.h"
#include "window.h"

#include <QApplication>
#include <QFile>
#include <QFileDialog>
#include <QRadioButton>
#include <QTableView>

namespace {

/** As long as it lives, answers every file dialog with one path, and notes when the dialog was gone. */
class FileAnswers final : public QObject
{
public:
    explicit FileAnswers(const QString &path) : m_path(path)
    {
        QCoreApplication::instance()->installEventFilter(this);
    }

    /** Processor seconds of this process when the last file dialog was gone. */
    double dialogGone() const { return m_dialogGone; }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        auto *dialog = qobject_cast<QFileDialog *>(watched);
        if (dialog && event->type() == QEvent::Show) {
            connect(dialog, &QObject::destroyed, this,
                    [this] { m_dialogGone = Measure::processorSeconds(); });
            dialog->selectFile(m_path);
            QMetaObject::invokeMethod(dialog, "accept", Qt::QueuedConnection);
        }
        return QObject::eventFilter(watched, event);
    }

private:
    QString m_path;
    double m_dialogGone = 0;
};

/** Loading and saving of one kind of project. */
class Kind final
{
public:
    Kind(MainWindow &window, const Home &home, const char *name, const char *output, const char *view,
         const char *save)
        : m_window(window),
          m_name(name),
          m_save(save),
          m_reference(home.padsFolder() + "/reference"),
          m_project(home.padsFolder() + "/" + name + ".zarvex"),
          m_files(m_project)
    {
        Window::find<QRadioButton>(window, output)->click();
        fill(*Window::find<QTableView>(window, view)->model());
        saveProject();
    }

    void report(Measure::Report &report, const QString &show)
    {
        const QByteArray bytes = contentOf(m_project);
        report.line("load a " + m_name + " project of a show of 600 Live Buttons",
                    Measure::inTurns(
                        31, [&] { return parseAndLoad(show); }, [&] { return loadProject(); }),
                    1.5);
        report.line("save a " + m_name + " project, up to its notice",
                    Measure::inTurns(
                        51, [&] { return writeAtOnce(m_reference, bytes); }, [&] { return saveProject(); }),
                    10, 5e-3);
        if (contentOf(m_project) != bytes)
            qFatal("a loaded project is not what was saved");
    }

private:
    double parseAndLoad(const QString &show)
    {
        // Ours comes behind a dialog, which leaves the memory in another state.
        QFileDialog::getOpenFileName(&m_window);
        const double start = Measure::processorSeconds();
        parse(m_project);
        Window::load(m_window, show);
        const double seconds = Measure::processorSeconds() - start;
        QCoreApplication::processEvents();
        return seconds;
    }

    double loadProject()
    {
        Window::call(m_window, "loadproject");
        const double seconds = Measure::processorSeconds() - m_files.dialogGone();
        QCoreApplication::processEvents();
        return seconds;
    }

    double saveProject()
    {
        QFile::remove(m_project);
        const double start = Measure::processorSeconds();
        if (!QMetaObject::invokeMethod(&m_window, m_save, Qt::DirectConnection, Q_ARG(QString, m_project)))
            qFatal("no slot %s", m_save);
        return m_answers.boxBegan() - start;
    }

    MainWindow &m_window;
    QString m_name;
    const char *m_save;
    QString m_reference;
    QString m_project;
    FileAnswers m_files;
    Window::Answers m_answers;
};

} // namespace

int main(int argc, char *argv[])
{
    const Home home;
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    const QApplication application(argc, argv);
    const QString show = home.padsFolder() + "/live.ini";
    writeShow(show, 600);
    MainWindow window(nullptr);
    window.show();

    Measure::Report report;
    Window::load(window, show);
    Kind(window, home, "Pads Page", "radio_outputpage", "vdjlistview", "savepadsproject")
        .report(report, show);
    Window::load(window, show);
    Kind(window, home, "MIDI Mapping", "radio_outputmidi", "tablecontroller", "savemidiproject")
        .report(report, show);
    return report.exitStatus();
}
