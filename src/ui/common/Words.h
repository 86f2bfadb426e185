/// @file Words.h
/// Translated sentences of the program, as UTF-8, with their values put in.
///
/// Every text of the windows goes through tr(): the class's own in a QObject, QObject::tr() in free
/// procedures. Texts of the lower floors are English and are put in as values.
///
/// Tests:   tests/ui/main/StatusTextTest.cpp, tests/ui/program/WordsTest.cpp
#pragma once

#include <QString>
#include <string>

inline QString WordsOf(const QString& sText) { return sText; }
inline QString WordsOf(const std::string& sText) { return QString::fromStdString(sText); }

/// @param sSentence  with %1 to %9 where the values go
/// @param value      QString or std::string; all are put in at once, so a value that contains "%1"
/// is not replaced again
template <class... T>
[[nodiscard]] std::string WordsPut(const QString& sSentence, const T&... value)
{
    return sSentence.arg(WordsOf(value)...).toStdString();
}
