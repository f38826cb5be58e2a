#pragma once

#include <QByteArray>
#include <QString>

/** All of a file; ends the benchmark where it cannot be read. */
QByteArray contentOf(const QString &path);

/** Parses a file of XML and lets it go; ends the benchmark where that fails. */
void parse(const QString &path);

/** Processor seconds that one write of some bytes into a new file takes. */
double writeAtOnce(const QString &path, const QByteArray &bytes);
