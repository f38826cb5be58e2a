// From the start of the process to its first painted window, against a bare program.

#include "devices/catalogue.h"
#include "home.h"
#include "mapperfile.h"
#include "measure.h"

#include <QDir>
#include <QDomDocument>
#include <QFile>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace {

constexpr unsigned LongestRun = 60; // seconds
constexpr int Mappers = 50;
constexpr int RowsOfMapper = 200;

double seconds(const timeval &time)
{
    return double(time.tv_sec) + double(time.tv_usec) * 1e-6;
}

/** What one run of a program took. */
struct Run
{
    double seconds;   ///< of the processor, user and system
    double megabytes; ///< of memory, at the most
};

double peakMegabytes(const rusage &used)
{
    return double(used.ru_maxrss) / 1024;
}

Run run(const QByteArray &program)
{
    const pid_t child = fork();
    if (child == 0) {
        alarm(LongestRun);
        execl(program, program.constData(), nullptr);
        _exit(EXIT_FAILURE);
    }
    int status = 0;
    rusage used = {};
    if (child < 0 || wait4(child, &status, 0, &used) != child || status != 0)
        qFatal("%s did not come to its first window", program.constData());
    return {seconds(used.ru_utime) + seconds(used.ru_stime), peakMegabytes(used)};
}

/** The same, with the memory kept aside. */
double run(const QByteArray &program, std::vector<double> &megabytes)
{
    const Run took = run(program);
    rusage own = {};
    getrusage(RUSAGE_SELF, &own);
    if (took.megabytes <= peakMegabytes(own)) // a program starts with the peak of the one that starts it
        qFatal("this benchmark takes more memory than %s", program.constData());
    megabytes.push_back(took.megabytes);
    return took.seconds;
}

/** Writes mappers for all controllers in turn. */
void writeMappers(const QString &folder)
{
    const QList<CatalogueEntry> controllers = readCatalogue(":/icons/Mappings");
    for (int i = 0; i < Mappers; ++i)
        writeMapper(folder + QString("/Mine %1.xml").arg(i),
                    controllers.at(i % controllers.size()).device.value("device"), RowsOfMapper);
}

double parseAll(const QString &folder)
{
    const double start = Measure::processorSeconds();
    int parsed = 0;
    for (const QFileInfo &info : QDir(folder).entryInfoList({"*.xml"})) {
        QFile file(info.filePath());
        QDomDocument document;
        if (file.open(QIODevice::ReadOnly) && document.setContent(&file))
            ++parsed;
    }
    const double taken = Measure::processorSeconds() - start;

    if (parsed != Mappers)
        qFatal("not all of %d mappers are parsed", Mappers);
    return taken;
}

} // namespace

int main(int /*argc*/, char *argv[])
{
    Q_INIT_RESOURCE(icons);
    const Home home;
    const QString folder = QFileInfo(QString::fromLocal8Bit(argv[0])).absolutePath();
    const QByteArray bare = (folder + "/start_bare").toLocal8Bit();
    const QByteArray zarvex = (folder + "/start_zarvex").toLocal8Bit();

    std::vector<double> bareMemory;
    std::vector<double> zarvexMemory;
    Measure::Report report;
    report.line("start to the first window",
                Measure::inTurns(
                    31, [&] { return run(bare, bareMemory); }, [&] { return run(zarvex, zarvexMemory); }),
                2);
    report.memoryLine("memory up to the first window",
                      {Measure::median(bareMemory), Measure::median(zarvexMemory)}, Measure::NoLimit);

    const Home withMappers;
    writeMappers(withMappers.mappersFolder());
    const auto startWithout = [&] {
        home.moveIn();
        return run(zarvex).seconds;
    };
    const auto startWith = [&] {
        withMappers.moveIn();
        return run(zarvex).seconds;
    };
    report.line("start with fifty mappers, against none", Measure::inTurns(21, startWithout, startWith), 1.5);
    report.line("start with fifty mappers, against parsing them too",
                Measure::inTurns(
                    21, [&] { return startWithout() + parseAll(withMappers.mappersFolder()); }, startWith),
                1.5);
    return report.exitStatus();
}
