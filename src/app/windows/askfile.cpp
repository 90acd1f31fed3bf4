#include "app/windows/askfile.h"

#include "app/windows/frmMain.h"
#include "base/paths.h"

#include <QFileDialog>

std::function<std::string(const FileQuestion&)> askfilename = filedialog;

/// Wide enough for all columns of the list.
static constexpr QSize dialogsize(820, 500);

/// The filter, its pattern in capitals as well: such names come from other systems.
static QString dialogfilter(const FileQuestion& question)
{
    const QString patterns = QString::fromStdString(question.patterns);
    QString name = QString::fromStdString(question.filter);
    // A dialog takes what stands in the last brackets for the patterns.
    return QStringLiteral("%1 (%2 %3)").arg(name, patterns, patterns.toUpper());
}

std::string filedialog(const FileQuestion& question)
{
    QFileDialog dialog(mainwindow, QString::fromStdString(question.title));
    dialog.setObjectName(QStringLiteral("filedialog"));
    dialog.setAcceptMode(question.saving ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog.setFileMode(question.saving ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    dialog.setNameFilter(dialogfilter(question));
    dialog.resize(dialogsize);
    dialog.setDefaultSuffix(QString::fromStdString(question.extension));
    if (!question.offered.empty()) {
        const std::string folder = pathof(question.offered);
        if (!folder.empty())
            dialog.setDirectory(QString::fromStdString(folder));
        if (question.saving)
            dialog.selectFile(QString::fromStdString(nameof(question.offered)));
    }
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return {};
    return dialog.selectedFiles().constFirst().toStdString();
}
