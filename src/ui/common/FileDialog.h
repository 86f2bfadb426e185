/// @file FileDialog.h
/// The only way to the file dialog; tests replace it and answer for the user.
#pragma once

#include <QString>
#include <functional>

class QWidget;

enum class FileDialogKind { Open, Save };

struct FileDialogQuestion {
    FileDialogKind eKind = FileDialogKind::Open;
    QString sFile;    ///< full path proposed
    QString sFilter;  ///< pairs of name and pattern, separated by bars: "File (*.ini)|*.ini"
};

/// Returns the chosen full path, or an empty text when the user cancels.
using FileDialogFn = std::function<QString(QWidget* pParent, const FileDialogQuestion& question)>;

[[nodiscard]] QString FileDialogShow(QWidget* pParent, const FileDialogQuestion& question);

/// Replaces the dialog (an empty function restores it) and returns the previous function.
FileDialogFn FileDialogSetHandler(FileDialogFn fnShow);
