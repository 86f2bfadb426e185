#include "app/engines/EngineList.h"

#include "engine/builtin/BuiltInEngine.h"
#include "propagation/itshfbc/EngineProgram.h"
#include "propagation/itshfbc/EngineRoot.h"
#include "propagation/itshfbc/ProcessEngine.h"

std::shared_ptr<const Engine> EngineMake(int iModel)
{
    if (EngineIsHopcasts(iModel))
        return std::make_shared<BuiltInEngine>(EngineRootGet().sFolder);
    return std::make_shared<ProcessEngine>(iModel);
}
