#include "places/CsvText.h"

#include <algorithm>

namespace {

/// Takes one row from the head of a text.
class RowReader {
public:
    explicit RowReader(std::string_view sText) : m_sText(sText.substr(0, kCsvRowMost)) {}

    /// @return false where the row breaks the rules
    bool Read()
    {
        do {
            std::string sField;
            if (m_n < m_sText.size() && m_sText[m_n] == '"' ? !QuotedTake(sField)
                                                            : !PlainTake(sField))
                return false;
            m_asField.push_back(std::move(sField));
        } while (Take(','));
        return true;
    }
    [[nodiscard]] std::size_t SizeGet() const { return m_n; }
    [[nodiscard]] std::vector<std::string> FieldsTake() { return std::move(m_asField); }
    [[nodiscard]] const char* FaultGet() const { return m_sFault; }

private:
    bool Take(char chr)
    {
        const bool bTaken = m_n < m_sText.size() && m_sText[m_n] == chr;
        m_n += bTaken ? 1 : 0;
        return bTaken;
    }
    bool Fail(const char* sFault)
    {
        m_sFault = sFault;
        return false;
    }
    bool PlainTake(std::string& sField)
    {
        const std::size_t nEnd = std::min(m_sText.find_first_of(",\r\n", m_n), m_sText.size());
        sField = m_sText.substr(m_n, nEnd - m_n);
        m_n = nEnd;
        return sField.find('"') == std::string::npos
               || Fail("a quote stands inside a field that is not quoted");
    }
    bool QuotedTake(std::string& sField)
    {
        for (++m_n; m_n < m_sText.size(); ++m_n) {
            if (m_sText[m_n] != '"') {
                sField += m_sText[m_n];
                continue;
            }
            ++m_n;
            if (m_n >= m_sText.size() || m_sText[m_n] != '"')
                return m_n >= m_sText.size()
                       || std::string_view(",\r\n").find(m_sText[m_n]) != std::string_view::npos
                       || Fail("something stands behind a closing quote");
            sField += '"';
        }
        return Fail("a quote is not closed");
    }

    std::string_view m_sText;
    std::size_t m_n = 0;
    std::vector<std::string> m_asField;
    const char* m_sFault = "";
};

/// Length of a line end at a place of the text: LF, CR LF or CR.
std::size_t LineEndSize(std::string_view sText, std::size_t n)
{
    if (n >= sText.size())
        return 0;
    return sText.substr(n).starts_with("\r\n") ? 2 : 1;
}

bool RowEndIs(std::string_view sText, std::size_t n)
{
    return n >= sText.size() || sText[n] == '\r' || sText[n] == '\n';
}

}  // namespace

std::vector<CsvRow> CsvRowsGet(std::string_view sText)
{
    std::vector<CsvRow> aRow;
    int nLine = 1;
    for (std::size_t n = 0; n < sText.size();) {
        const std::string_view sRest = sText.substr(n);
        RowReader reader(sRest);
        CsvRow row;
        row.nLine = nLine;
        std::size_t nSize = std::min(sRest.find_first_of("\r\n"), sRest.size());
        if (!reader.Read()) {
            row.sFault = reader.FaultGet();
        } else if (!RowEndIs(sRest, reader.SizeGet())) {
            row.sFault = "it is too long";
        } else {
            nSize = reader.SizeGet();
            row.asField = reader.FieldsTake();
        }
        row.sRaw = sRest.substr(0, nSize);
        nLine += 1 + static_cast<int>(std::ranges::count(row.sRaw, '\n'));
        n += nSize + LineEndSize(sText, n + nSize);
        aRow.push_back(std::move(row));
    }
    return aRow;
}

std::string CsvFieldText(std::string_view sField)
{
    const bool bBlankEnd = !sField.empty() && (sField.front() == ' ' || sField.back() == ' ');
    if (sField.find_first_of(",\"\r\n") == std::string_view::npos && !bBlankEnd)
        return std::string(sField);
    std::string sText = "\"";
    for (const char chr : sField) sText += chr == '"' ? std::string("\"\"") : std::string(1, chr);
    return sText + "\"";
}
