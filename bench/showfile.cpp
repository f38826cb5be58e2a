#include "showfile.h"

#include <QFile>
#include <QSettings>
#include <QTextStream>

#include <malloc.h>

namespace {

const char *const Titles[] = {"All Red",   "Blinder left", "Strobe, slow", "Rainbow chase",
                              "Moving up", "Smoke",        "Décor warm",   "UV on"};
constexpr int Colors[] = {16711680, 255, 65280, 16776960, 16721408, 64767, 8388736};
constexpr int TitleCount = sizeof Titles / sizeof *Titles;
constexpr int ColorCount = sizeof Colors / sizeof *Colors;

void writeTrigger(QTextStream &out, const char *trigger, int number)
{
    out << trigger << "_device = 0\n"
        << trigger << "_channel = 1\n"
        << trigger << "_type = 0\n"
        << trigger << "_note = " << number % 128 << '\n';
}

void writeButton(QTextStream &out, int page, int button, int number)
{
    const char *const title = Titles[number % TitleCount];
    out << "[page" << page << "_button" << button << "]\n"
        << "line = " << (button - 1) % 10 + 1 << '\n'
        << "column = " << (button - 1) / 10 + 1 << '\n'
        << "name = scene_" << number << ".scex\n"
        << "title = " << title << ' ' << number << '\n';
    if (number % 4 != 3)
        out << "color = " << Colors[number % ColorCount] << '\n';
    if (number % 10 < 3) {
        out << "speed = auto_bpm\n"
            << "beats = 0\n";
        writeTrigger(out, "trigger_midi", number);
        writeTrigger(out, "trigger_midiout", number);
        out << "trigger_midiout_data = 3\n"
            << "trigger_midiout_data_off = 0\n"
            << "release_all = yes\n";
    }
    if (number % 10 == 0)
        out << "macro = " << title << " left|" << title << " right|" << title << " back|\n";
}

} // namespace

void writeShow(const QString &path, int buttons)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        qFatal("cannot write %s", qPrintable(path));
    QTextStream out(&file);
    out.setCodec("UTF-8");
    out.setGenerateByteOrderMark(true);

    const int pages = (buttons + ButtonsPerPage - 1) / ButtonsPerPage;
    out << "[live]\ndmx_on = yes\nfade_time = 300\n[page]\nnumber = " << pages << '\n';
    for (int page = 1; page <= pages; ++page) {
        const int first = (page - 1) * ButtonsPerPage;
        const int count = qMin(ButtonsPerPage, buttons - first);
        out << "[page" << page << "]\nname = Page " << page << "\nnb_buttons = " << count << '\n';
        for (int button = 1; button <= count; ++button)
            writeButton(out, page, button, first + button - 1);
    }
}

FreshCopies::FreshCopies(int buttons)
{
    writeShow(m_folder.filePath("live.ini"), buttons);
}

QString FreshCopies::next()
{
    QFile::remove(m_folder.filePath(QString::number(m_copies)));
    // QSettings keeps the last thirty files that nobody has open.
    for (int i = 0; i < 31; ++i)
        QSettings(m_folder.filePath("none" + QString::number(i)), QSettings::IniFormat);
    malloc_trim(0); // so that none has to tidy up after the one before

    QString copy = m_folder.filePath(QString::number(++m_copies));
    if (!QFile::copy(m_folder.filePath("live.ini"), copy))
        qFatal("cannot write %s", qPrintable(copy));
    return copy;
}
