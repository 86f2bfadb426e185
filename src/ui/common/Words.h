/// @file Words.h
/// Texts of ours that travel as UTF-8: a translated sentence with its values put in.
///
/// Every text of the windows goes through tr(): a class of Qt's through its own, a procedure
/// through QObject::tr(). Texts of the lower floors are English and are put in as values.
///
/// Tests:   tests/ui/main/StatusTextTest.cpp, tests/ui/program/WordsTest.cpp
#pragma once

#include <QString>
#include <string>

inline QString WordsOf(const QString& sText) { return sText; }
inline QString WordsOf(const std::string& sText) { return QString::fromStdString(sText); }

/// @param sSentence  with %1 to %9 where the values belong
/// @param value      QString or std::string; all are put in at once, so that one that holds a "%1"
///                   stays as it is
template <class... T>
[[nodiscard]] std::string WordsPut(const QString& sSentence, const T&... value)
{
    return sSentence.arg(WordsOf(value)...).toStdString();
}
