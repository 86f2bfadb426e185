#include "support/ProgramRun.h"

#include <gtest/gtest.h>

#include <cstdlib>

#ifndef _WIN32
#include <sys/wait.h>
#endif

#include "support/TempFolder.h"

namespace {

std::string Quoted(const std::string& sWord)
{
#ifdef _WIN32
    return "\"" + sWord + "\"";
#else
    std::string sQuoted = "'";
    for (const char chr : sWord) sQuoted += chr == '\'' ? "'\\''" : std::string(1, chr);
    return sQuoted + "'";
#endif
}

}  // namespace

ProgramResult ProgramRun(const std::vector<std::string>& asWords)
{
    const TempFolder tmp;
    std::string sCommand;
    for (const std::string& sWord : asWords) sCommand += Quoted(sWord) + " ";
    sCommand += ">" + Quoted(tmp.Path("out")) + " 2>" + Quoted(tmp.Path("error"));
    const int nEnd = std::system(sCommand.c_str());  // NOLINT(cert-env33-c): a test's own words
    ProgramResult res;
#ifdef _WIN32
    res.nStatus = nEnd;
#else
    res.nStatus = WIFEXITED(nEnd) ? WEXITSTATUS(nEnd) : -1;
#endif
    res.sOut = BytesRead(tmp.Path("out"));
    res.sError = BytesRead(tmp.Path("error"));
    return res;
}
