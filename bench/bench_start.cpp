// From the start of the process to its first painted window, against a bare program.

#include "home.h"
#include "measure.h"

#include <QFileInfo>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr unsigned LongestRun = 60; // seconds

double seconds(const timeval &time)
{
    return double(time.tv_sec) + double(time.tv_usec) * 1e-6;
}

/** Processor seconds of one run of a program, user and system. */
double run(const QByteArray &program)
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
    return seconds(used.ru_utime) + seconds(used.ru_stime);
}

} // namespace

int main(int /*argc*/, char *argv[])
{
    const Home home;
    const QString folder = QFileInfo(QString::fromLocal8Bit(argv[0])).absolutePath();
    const QByteArray bare = (folder + "/start_bare").toLocal8Bit();
    const QByteArray zarvex = (folder + "/start_zarvex").toLocal8Bit();

    Measure::Report report;
    report.line("start to the first window",
                Measure::inTurns(
                    31, [&] { return run(bare); }, [&] { return run(zarvex); }),
                2);
    return report.exitStatus();
}
