#pragma once

#include "ui/designer/DescribeProcess.h"

#include <QDialog>
#include <functional>
#include <string>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QProgressBar;
class QPushButton;

namespace mergeloom {

/// The window in which the user chooses a database, its objects and the records, and which shows the progress
/// of their reading.
class DatabaseWindow final : public QDialog {
    Q_OBJECT

  public:
    /// The questions that other parts of the program answer.
    struct Questions {
        std::function<std::string()> askFile;  ///< returns the path of a file, empty if the user cancels
        /// Returns the path of the structure document for a database; empty if there is no folder for it.
        std::function<QString(const QString& source)> documentFor;
    };

    /// The program is the path of mergeloom-describe; empty if it is not installed.
    DatabaseWindow(QWidget* owner, Questions questions, const QString& program);

    /// Enters a database and reads its objects.
    void open(const QString& source);
    /// Describes a database again as it was described before.
    void repeat(const DatabaseRequest& request);

    /// Return the result after the window was accepted.
    [[nodiscard]] const DatabaseRequest& request() const { return request_; }
    [[nodiscard]] const QStringList& remarks() const { return remarks_; }

    /// Ends a reading that is running, otherwise closes the window.
    void reject() override;
    void accept() override;

  private:
    enum class Records { None, All, First, WithValue };

    void makeSourceRow();
    void makeObjectList();
    void makeRecordsRow();
    void makeProgress();
    void layOut();
    void connectProcess();

    void browse();
    void readObjects();
    void forgetObjects();
    void showObjects(const QStringList& objects);
    void checkAll(Qt::CheckState state);
    void updateChoices();
    void tell(const QString& sentence);
    void describe();
    [[nodiscard]] DatabaseSource source() const;
    [[nodiscard]] QStringList checkedObjects() const;
    [[nodiscard]] Records records() const;
    [[nodiscard]] QString recordsOption() const;

    Questions questions_;
    DescribeProcess process_;
    DatabaseRequest request_;
    QStringList remarks_;

    QLineEdit* source_;
    QPushButton* browse_;
    QPushButton* read_;
    QLabel* passwordLabel_;
    QLineEdit* password_;
    QCheckBox* all_;
    QListWidget* objects_;
    QComboBox* records_;
    QLineEdit* value_;
    QProgressBar* bar_;
    QLabel* message_;
    QPushButton* ok_;
};

}  // namespace mergeloom
