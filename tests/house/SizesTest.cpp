/// Nothing in src/ grows beyond what a reader can take in at once.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <regex>
#include <string>
#include <vector>

#include "house/HouseFiles.h"
#include "support/TempFolder.h"

namespace fs = std::filesystem;

namespace {

constexpr int kFileLinesMost = 400;
constexpr int kClassProceduresMost = 40;

/// The code alone: without comments, preprocessor lines and string literals.
std::string CodeGet(std::string sText)
{
    static const std::regex kRawText(R"re(R"\([^]*?\)")re");
    static const std::regex kComment(R"(//[^\n]*|/\*[^]*?\*/)");
    static const std::regex kText(R"re("(?:[^"\\\n]|\\.)*")re");
    static const std::regex kPreprocessor(R"((^|\n)\s*#[^\n]*)");
    for (const std::regex* pRgx : {&kRawText, &kComment, &kText})
        sText = std::regex_replace(sText, *pRgx, "");
    return std::regex_replace(sText, kPreprocessor, "\n");
}

/// True for a declaration of the class's own procedure; overrides do not count, because a base
/// class requires them.
bool ProcedureIs(std::string sDeclaration)
{
    static const std::regex kTemplate("<[^<>]*>");
    for (std::string sBefore; sBefore != sDeclaration;) {
        sBefore = sDeclaration;
        sDeclaration = std::regex_replace(sBefore, kTemplate, "");
    }
    static const std::regex kOverride(R"(\boverride\b)");
    return sDeclaration.find('(') != std::string::npos
           && !std::regex_search(sDeclaration, kOverride);
}

/// Counts the procedures declared in the body that begins after its opening brace.
int ProceduresCount(const std::string& sCode, std::size_t nFrom)
{
    int nProcedures = 0;
    int nDepth = 1;
    std::string sDeclaration;
    for (std::size_t n = nFrom; n < sCode.size() && nDepth > 0; ++n) {
        const char c = sCode[n];
        const bool bEnd = nDepth == 1 && (c == ';' || c == '{');
        if (bEnd && ProcedureIs(sDeclaration))
            ++nProcedures;
        if (bEnd || c == '}')
            sDeclaration.clear();
        else if (nDepth == 1)
            sDeclaration += c;
        nDepth += c == '{' ? 1 : c == '}' ? -1 : 0;
    }
    return nProcedures;
}

/// Each class or struct of a text with the number of its own procedures.
std::map<std::string, int> ClassesGet(const std::string& sText)
{
    static const std::regex kClass(R"(\b(?:class|struct) (\w+)[^;{}()]*\{)");
    const std::string sCode = CodeGet(sText);
    std::map<std::string, int> mapClass;
    for (std::sregex_iterator it(sCode.begin(), sCode.end(), kClass), itEnd; it != itEnd; ++it)
        mapClass[(*it)[1]] =
            ProceduresCount(sCode, static_cast<std::size_t>(it->position() + it->length()));
    return mapClass;
}

TEST(Sizes, OfFilesStayBelowTheLimit)
{
    for (const fs::path& pthFile : SourcesGet()) {
        const std::string sText = BytesRead(pthFile.string());
        EXPECT_LE(std::count(sText.begin(), sText.end(), '\n'), kFileLinesMost) << pthFile;
    }
}

TEST(Sizes, OfClassesStayBelowTheLimit)
{
    int nClasses = 0;
    for (const fs::path& pthFile : SourcesGet()) {
        if (pthFile.extension() != ".h")
            continue;
        for (const auto& [sClass, nProcedures] : ClassesGet(BytesRead(pthFile.string()))) {
            EXPECT_LE(nProcedures, kClassProceduresMost) << sClass << " in " << pthFile;
            ++nClasses;
        }
    }
    EXPECT_GT(nClasses, 150);
}

TEST(Sizes, CountDeclarationsAndInlineBodiesButNoMembersAndOverrides)
{
    const auto mapClass = ClassesGet(
        "class A;\n"
        "class B final : public A {\n"
        "public:\n"
        "    explicit B(int i = 0);  // a comment (with brackets);\n"
        "    ~B() override;\n"
        "    [[nodiscard]] int Get() const { return i + f(1); }\n"
        "    void Paint(std::function<void(int)> fn,\n"
        "               const char* s = \"(;\") override;\n"
        "    struct C {\n"
        "        void D();\n"
        "        int i = 0;\n"
        "    };\n"
        "    std::function<void(std::vector<int>)> m_fn;\n"
        "    int m_i{3};\n"
        "};\n");
    EXPECT_EQ(mapClass, (std::map<std::string, int>{{"B", 2}, {"C", 1}}));
}

}  // namespace
