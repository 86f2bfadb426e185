#include "ui/common/FileDialog.h"

#include <QFileDialog>
#include <utility>

#include "ui/common/BoxOpen.h"

namespace {

FileDialogFn& Handler()
{
    static FileDialogFn fnShow;
    return fnShow;
}

QString DialogRun(QWidget* pParent, const FileDialogQuestion& question)
{
    const BoxOpen open;
    QFileDialog dlg(pParent);
    const bool bSave = question.eKind == FileDialogKind::Save;
    dlg.setAcceptMode(bSave ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dlg.setFileMode(bSave ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    dlg.setNameFilter(question.sFilter.section(QLatin1Char('|'), 0, 0));
    dlg.setDefaultSuffix(question.sFilter.section(QLatin1Char('.'), -1));
    dlg.selectFile(question.sFile);
    return dlg.exec() == QDialog::Accepted ? dlg.selectedFiles().value(0) : QString();
}

}  // namespace

QString FileDialogShow(QWidget* pParent, const FileDialogQuestion& question)
{
    return Handler() ? Handler()(pParent, question) : DialogRun(pParent, question);
}

FileDialogFn FileDialogSetHandler(FileDialogFn fnShow)
{
    return std::exchange(Handler(), std::move(fnShow));
}
