#include "ui/designer/DescribeProcess.h"

#include "base/ConnectionString.h"
#include "base/Paths.h"

#include <QProcessEnvironment>
#include <QTimer>
#include <utility>

namespace mergeloom {

namespace {

constexpr const char* kProgram = "mergeloom-describe";
constexpr const char* kPasswordVariable = "MERGELOOM_ODBC_PASSWORD";
/// The milliseconds between the request to end and the kill of the program, which removes its files in this
/// time.
constexpr int kEndTime = 3000;

/// Ends a program that is no longer needed and forgets it.
void end(QProcess* process) {
    process->disconnect();
    if (process->state() == QProcess::NotRunning) return process->deleteLater();
    QObject::connect(process, &QProcess::finished, process, &QObject::deleteLater);
    process->terminate();
    QTimer::singleShot(kEndTime, process, &QProcess::kill);
}

}  // namespace

QString describeProgram() {
    const std::string beside = installedFile(kProgram);
    if (!beside.empty()) return QString::fromStdString(beside);
    // The window's program is in ../lib/mergeloom of the folder of the others.
    const std::string prefix = parentFolder(parentFolder(parentFolder(programPath())));
    const std::string installed = joinPath(joinPath(prefix, "bin"), kProgram);
    return fileExists(installed) ? QString::fromStdString(installed) : QString();
}

DescribeProcess::DescribeProcess(QString program, QObject* parent)
    : QObject(parent), program_(std::move(program)) {}

DescribeProcess::~DescribeProcess() {
    // Runs that were cancelled may not have ended yet.
    const QList<QProcess*> runs = findChildren<QProcess*>();
    for (QProcess* const run : runs) {
        run->disconnect();
        run->terminate();
    }
    for (QProcess* const run : runs) {
        if (run->state() == QProcess::NotRunning || run->waitForFinished(kEndTime)) continue;
        run->kill();
        run->waitForFinished();
    }
}

void DescribeProcess::list(const DatabaseSource& source) {
    cancel();
    isListing_ = true;
    start(source, {QStringLiteral("--list")});
}

void DescribeProcess::describe(const DatabaseRequest& request) {
    cancel();
    isListing_ = false;
    QStringList options{QStringLiteral("--progress"), QStringLiteral("--output"), request.document};
    for (const QString& object : request.objects)
        options << QStringLiteral("--object") << object;
    if (!request.records.isEmpty()) options << QStringLiteral("--records") << request.records;
    start(request.source, options);
}

void DescribeProcess::start(const DatabaseSource& source, const QStringList& options) {
    lines_.clear();
    partOfLine_.clear();
    if (program_.isEmpty()) {
        Q_EMIT failed(
            tr("The program %1, which reads databases, is not installed.").arg(QLatin1String(kProgram)));
        return;
    }
    // Others could read the arguments of the program.
    const std::string name = source.name.toStdString();
    if (isOdbcSource(name) && hasPassword(connectionOf(name))) {
        Q_EMIT failed(tr("Leave the password out of the data source and enter it in the line for it."));
        return;
    }
    process_ = new QProcess(this);
    // The program asks for passwords only on a terminal.
    process_->setStandardInputFile(QProcess::nullDevice());
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    if (!source.password.isEmpty()) environment.insert(QLatin1String(kPasswordVariable), source.password);
    process_->setProcessEnvironment(environment);
    connect(process_, &QProcess::readyReadStandardOutput, this, &DescribeProcess::readOutput);
    connect(process_, &QProcess::finished, this, &DescribeProcess::finish);
    connect(process_, &QProcess::errorOccurred, this, &DescribeProcess::fail);
    process_->start(program_, QStringList{source.name} + options);
}

void DescribeProcess::cancel() {
    if (process_ != nullptr) end(std::exchange(process_, nullptr));
}

void DescribeProcess::readOutput() {
    partOfLine_ += process_->readAllStandardOutput();
    QList<QByteArray> lines = partOfLine_.split('\n');
    partOfLine_ = lines.takeLast();
    for (const QByteArray& line : lines)
        lines_ << QString::fromUtf8(line);
    if (!isListing_ && !lines_.isEmpty()) Q_EMIT advanced(lines_.constLast().toLongLong());
}

void DescribeProcess::finish(int status, QProcess::ExitStatus ending) {
    readOutput();
    const QStringList told = sentences();
    std::exchange(process_, nullptr)->deleteLater();
    if (ending == QProcess::NormalExit && status == 0) {
        isListing_ ? Q_EMIT listed(lines_) : Q_EMIT described(told);
    } else {
        Q_EMIT failed(told.isEmpty() ? tr("The database could not be read.") : told.constLast());
    }
}

void DescribeProcess::fail(QProcess::ProcessError error) {
    // All others are followed by the end of the program.
    if (error != QProcess::FailedToStart) return;
    const QString reason = process_->errorString();
    std::exchange(process_, nullptr)->deleteLater();
    Q_EMIT failed(tr("The program %1 cannot be started: %2").arg(QLatin1String(kProgram), reason));
}

/// Returns the sentences of the program without its name. Further lines of a sentence are indented.
QStringList DescribeProcess::sentences() {
    const QString prefix = QLatin1String(kProgram) + QStringLiteral(": ");
    QStringList sentences;
    const QString text = QString::fromUtf8(process_->readAllStandardError());
    for (const QString& line : text.split(QLatin1Char('\n'), Qt::SkipEmptyParts)) {
        if (line.startsWith(prefix)) {
            sentences << line.mid(prefix.size());
        } else if (!sentences.isEmpty()) {
            sentences.last() += QLatin1Char('\n') + line.trimmed();
        }
    }
    return sentences;
}

}  // namespace mergeloom
