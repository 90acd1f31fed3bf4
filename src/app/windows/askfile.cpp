#include "app/windows/askfile.h"

#include "app/windows/frmMain.h"
#include "base/paths.h"

#include <QFileDialog>

#include <algorithm>

std::function<std::string(const FileQuestion&)> askfilename = filedialog;

/// Wide enough for all columns of the list.
static constexpr QSize dialogsize(820, 500);

/// The filter, its pattern in capitals as well: such names come from other systems.
static QString dialogfilter(const std::string& filter, const std::string& files)
{
    const QString patterns = QString::fromStdString(files);
    QString name = QString::fromStdString(filter);
    // A dialog takes what stands in the last brackets for the patterns.
    return QStringLiteral("%1 (%2 %3)").arg(name, patterns, patterns.toUpper());
}

/// Offers the kinds of a question.
static void offerkinds(QFileDialog& dialog, const FileQuestion& question)
{
    QStringList filters;
    for (const FileFilter& kind : question.kinds)
        filters.append(dialogfilter(kind.filter, kind.patterns));
    dialog.setNameFilters(filters);
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    const auto choose = [&dialog, &question, filters](const QString& filter) {
        const auto at = static_cast<std::size_t>(std::max<qsizetype>(0, filters.indexOf(filter)));
        *question.chosen = question.kinds[at].extension;
        dialog.setDefaultSuffix(QString::fromStdString(*question.chosen));
    };
    QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, choose);
    choose(filters.constFirst());
}

std::string filedialog(const FileQuestion& question)
{
    QFileDialog dialog(mainwindow, QString::fromStdString(question.title));
    dialog.setObjectName(QStringLiteral("filedialog"));
    dialog.setAcceptMode(question.saving ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog.setFileMode(question.saving ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    dialog.setNameFilter(dialogfilter(question.filter, question.patterns));
    dialog.resize(dialogsize);
    dialog.setDefaultSuffix(QString::fromStdString(question.extension));
    if (!question.kinds.empty() && question.chosen != nullptr)
        offerkinds(dialog, question);
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
