#include "app/export/AreaPicture.h"

#include <QGuiApplication>

#include "propagation/RequestText.h"
#include "propagation/SnrScale.h"
#include "system/ClockLib.h"
#include "ui/common/LocationText.h"
#include "ui/map/MapPicture.h"

QImage AreaPictureGet(const PredictArea& area, const PredictAreaRun& run)
{
    MapPictureInput input;
    input.area = {area.dSouth, area.dNorth, area.dWest, area.dEast};
    input.posRc = {run.settings.m_dRcLat, run.settings.m_dRcLon};
    for (const PredictAreaBox& box : run.aBoxes) {
        const AreaRequest& request = box.request;
        const AreaBox boxWanted{request.dSouth, request.dNorth, request.dWest, request.dEast};
        input.aBoxes.push_back({{AreaBoxPrinted(boxWanted), boxWanted, request.nGridSize,
                                 run.settings.m_fMapOverlayMinSnr, SnrGetColor},
                                box.aPoints});
    }
    input.sCaption =
        QStringLiteral("Receiver %1").arg(PositionToText(input.posRc.dLat, input.posRc.dLon));
    if (!run.aBoxes.empty())
        input.sCaption +=
            QString::fromUtf8(kTextBetween)
            + QString::fromStdString(AreaFootText(run.aBoxes.front().request, LocalNow().nYear));
    return MapPictureGet(input, QGuiApplication::font());
}
