#include "house/SourceTexts.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <regex>

#include "house/HouseFiles.h"
#include "support/TempFolder.h"

namespace {

/// Reads the literal that begins at the quote, and moves past it.
std::string LiteralTake(const std::string& sSource, std::size_t& n)
{
    if (sSource.compare(n - 1, 3, "R\"(") == 0) {
        const std::size_t nFrom = n + 2;
        n = std::min(sSource.find(")\"", nFrom), sSource.size() - 2) + 2;
        return sSource.substr(nFrom, n - 2 - nFrom);
    }
    std::string sText;
    for (++n; n < sSource.size() && sSource[n] != '"'; ++n) {
        if (sSource[n] != '\\') {
            sText += sSource[n];
            continue;
        }
        const char c = sSource[++n];
        sText += c == 'n' ? '\n' : c == 'r' ? '\r' : c == 't' ? '\t' : c;
    }
    ++n;
    return sText;
}

std::string BlanksJoin(const std::string& sText)
{
    static const std::regex kBlanks("\\s+");
    return std::regex_replace(sText, kBlanks, " ");
}

/// The texts of a form's controls.
void FormTextsAdd(const std::string& sForm, std::set<std::string>& asText)
{
    static const std::regex kText("<string[^>]*>([^<]+)</string>");
    for (const std::string& sText : MatchesGet(sForm, kText)) asText.insert(BlanksJoin(sText));
}

void LiteralsAdd(const std::string& sSource, std::set<std::string>& asText)
{
    std::string sText;
    bool bOpen = false;  // only blanks since the last literal
    for (std::size_t n = 0; n < sSource.size();) {
        const char c = sSource[n];
        if (sSource.compare(n, 2, "//") == 0) {
            n = std::min(sSource.find('\n', n), sSource.size());
        } else if (sSource.compare(n, 3, "'\"'") == 0) {
            n += 3;
        } else if (c == '"') {
            sText = (bOpen ? sText : std::string()) + LiteralTake(sSource, n);
            bOpen = true;
            continue;
        } else if (std::isspace(static_cast<unsigned char>(c)) != 0) {
            ++n;
            continue;
        } else {
            ++n;
        }
        if (bOpen)
            asText.insert(BlanksJoin(sText));
        bOpen = false;
    }
}

}  // namespace

const std::set<std::string>& SourceTextsGet()
{
    static const std::set<std::string> s_asText = [] {
        std::set<std::string> asText;
        for (const auto& pthFile : SourcesGet()) LiteralsAdd(BytesRead(pthFile.string()), asText);
        for (const auto& entry : std::filesystem::recursive_directory_iterator(SOURCE_FOLDER))
            if (entry.path().extension() == ".ui")
                FormTextsAdd(BytesRead(entry.path().string()), asText);
        return asText;
    }();
    return s_asText;
}

bool SourceTextsHave(std::string_view sPart)
{
    const auto& asText = SourceTextsGet();
    return std::any_of(asText.begin(), asText.end(), [&](const std::string& sText) {
        return sText.find(sPart) != std::string::npos;
    });
}
