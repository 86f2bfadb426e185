#include <cstring>
#include <string>

#include "system/ErrorTextLib.h"

std::string SystemErrorText(int nCode)
{
    // Unlike strerror this neither follows the locale nor invents a text for an unknown code.
    const char* sText = strerrordesc_np(nCode);
    return sText ? sText : "Error Code " + std::to_string(nCode);
}
