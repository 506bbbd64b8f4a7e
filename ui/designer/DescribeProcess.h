#pragma once

#include <QByteArray>
#include <QObject>
#include <QProcess>
#include <QString>
#include <QStringList>

namespace mergeloom {

/// A database: a file, or a data source of ODBC after "odbc:". The password is for such a source; it is
/// passed on in the environment, which other users cannot read.
struct DatabaseSource {
    QString name{};
    QString password{};
};

/// A description of a database that is wanted.
struct DatabaseRequest {
    DatabaseSource source{};
    QStringList objects{};  ///< all if there are none
    QString records{};      ///< "all", a number, or "column=value"; empty for no records
    QString document{};     ///< the path of the structure document
};

/// Returns the path of the program that describes databases; empty if it is not installed.
QString describeProgram();

/// Runs the program that describes databases, which keeps their libraries out of this one. One run at a time;
/// a new one ends that before it.
class DescribeProcess final : public QObject {
    Q_OBJECT

  public:
    /// The program is the path of mergeloom-describe; empty if it is not installed.
    explicit DescribeProcess(QString program, QObject* parent = nullptr);
    DescribeProcess(const DescribeProcess&) = delete;
    DescribeProcess& operator=(const DescribeProcess&) = delete;
    /// Ends all runs and waits until they have removed their temporary files.
    ~DescribeProcess() override;

    /// Asks for the objects of a database.
    void list(const DatabaseSource& source);
    /// Writes a structure document.
    void describe(const DatabaseRequest& request);
    /// Ends the run without a result. Its document stays as it was.
    void cancel();
    [[nodiscard]] bool isRunning() const { return process_ != nullptr; }

  Q_SIGNALS:
    void listed(const QStringList& objects);
    /// Emitted with the number of records that are done.
    void advanced(qint64 records);
    /// Emitted with sentences about omissions.
    void described(const QStringList& remarks);
    /// Emitted with the sentence of the program.
    void failed(const QString& sentence);

  private:
    void start(const DatabaseSource& source, const QStringList& options);
    void readOutput();
    void finish(int status, QProcess::ExitStatus ending);
    void fail(QProcess::ProcessError error);
    [[nodiscard]] QStringList sentences();

    QString program_;
    QProcess* process_ = nullptr;
    bool isListing_ = false;
    QStringList lines_;
    QByteArray partOfLine_;
};

}  // namespace mergeloom
