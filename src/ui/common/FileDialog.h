/// @file FileDialog.h
/// The one door to the common file dialog; tests answer for the user.
#pragma once

#include <QString>
#include <functional>

class QWidget;

enum class FileDialogKind { Open, Save };

struct FileDialogQuestion {
    FileDialogKind eKind = FileDialogKind::Open;
    QString sFile;    ///< full path shown first
    QString sFilter;  ///< "File (*.ini)|*.ini": pairs of name and pattern between bars
};

/// Answers with the chosen full path, empty when the user cancels.
using FileDialogFn = std::function<QString(QWidget* pParent, const FileDialogQuestion& question)>;

[[nodiscard]] QString FileDialogShow(QWidget* pParent, const FileDialogQuestion& question);

/// Replaces the dialog (an empty function restores it) and returns what was in force.
FileDialogFn FileDialogSetHandler(FileDialogFn fnShow);
