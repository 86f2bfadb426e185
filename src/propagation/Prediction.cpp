#include "propagation/Prediction.h"

std::string_view FailureKindName(FailureKind eKind)
{
    switch (eKind) {
        case FailureKind::NotInstalled:
            return "NotInstalled";
        case FailureKind::NotStarted:
            return "NotStarted";
        case FailureKind::Timeout:
            return "Timeout";
        case FailureKind::BadInput:
            return "BadInput";
        case FailureKind::BadOutput:
            return "BadOutput";
        case FailureKind::Busy:
            return "Busy";
        case FailureKind::Cancelled:
            return "Cancelled";
        case FailureKind::File:
            return "File";
    }
    return "";
}
