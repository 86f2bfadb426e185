#include "places/CsvText.h"

#include <algorithm>
#include <utility>

namespace {

/// Takes one row from the beginning of a text.
class RowReader {
public:
    explicit RowReader(std::string_view sText) : m_sText(sText.substr(0, kCsvRowMost)) {}

    /// @return false if the row breaks the rules
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
               || Fail("there is a quote inside a field that is not quoted");
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
                       || Fail("there is text after a closing quote");
            sField += '"';
        }
        return Fail("a quote is not closed");
    }

    std::string_view m_sText;
    std::size_t m_n = 0;
    std::vector<std::string> m_asField;
    const char* m_sFault = "";
};

bool RowEndIs(std::string_view sText, std::size_t n)
{
    return n >= sText.size() || sText[n] == '\r' || sText[n] == '\n';
}

std::size_t LineSize(std::string_view sText)
{
    return std::min(sText.find_first_of("\r\n"), sText.size());
}

}  // namespace

CsvRow CsvReader::Take(std::size_t nSize)
{
    CsvRow row;
    row.nLine = m_nLine;
    row.sRaw = m_sRest.substr(0, nSize);
    m_nLine += 1 + static_cast<int>(std::ranges::count(row.sRaw, '\n'));
    m_sRest.remove_prefix(nSize);
    m_sRest.remove_prefix(m_sRest.starts_with("\r\n") ? 2
                                                      : std::min<std::size_t>(m_sRest.size(), 1));
    return row;
}

CsvRow CsvReader::LineTake() { return Take(LineSize(m_sRest)); }

CsvRow CsvReader::RowTake()
{
    RowReader reader(m_sRest);
    std::string sFault;
    if (!reader.Read())
        sFault = reader.FaultGet();
    else if (!RowEndIs(m_sRest, reader.SizeGet()))
        sFault = "it is too long";
    CsvRow row = sFault.empty() ? Take(reader.SizeGet()) : LineTake();
    if (sFault.empty())
        row.asField = reader.FieldsTake();
    row.sFault = std::move(sFault);
    return row;
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
