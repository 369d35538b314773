#include "link/parameters.h"

#include "link/app_messages.h"
#include "link/appcalls.h"
#include "link/paramkinds.h"

#include <cassert>
#include <cstdio>
#include <cstring>

void ZrGetParam(uint32_t kind, void *record, uint32_t size, bool useDefault)
{
    memset(record, 0, size);
    WireWriter request(ParamRequest::Size);
    request.u32(ParamRequest::OffsetKind, kind)
        .u32(ParamRequest::OffsetSize, size)
        .u8(ParamRequest::OffsetUseDefault, useDefault ? 1 : 0)
        .u8(ParamRequest::OffsetIsRead, 1);
    appRequest(AppMain::parameters, AppParameter::paramAccess, record, size, request.data(),
               ParamRequest::Size);
}

void ZrSetParam(uint32_t kind, const void *record, uint32_t size)
{
    if (!record) {
        printf("\033[0;31m[%s %d]Parameter pointer error!\033[0;39m\n", "ZrSetParam", __LINE__);
        return;
    }
    WireWriter message(ParamRequest::Size + size);
    message.u32(ParamRequest::OffsetKind, kind)
        .u32(ParamRequest::OffsetSize, size)
        .bytes(ParamRequest::Size, record, size);
    appSend(AppMain::parameters, AppParameter::paramAccess, message.data(),
            uint32_t(message.size()));
}

bool writeIfChanged(uint32_t kind, const void *before, const void *now, uint32_t size)
{
    if (memcmp(before, now, size) == 0)
        return false;
    ZrSetParam(kind, now, size);
    return true;
}

ParamRecord::ParamRecord(uint32_t kind)
    : kind_(kind), before_(paramSize(kind)), now_(paramSize(kind))
{
    assert(findParamKind(kind));
}

void ParamRecord::read(Values values)
{
    const bool useDefault = values == Values::FactoryDefault;
    ZrGetParam(kind_, now_.data(), uint32_t(now_.size()), useDefault);
    if (!useDefault)
        before_ = now_;
}

bool ParamRecord::writeIfChanged()
{
    if (!isChanged())
        return false;
    ZrSetParam(kind_, now_.data(), uint32_t(now_.size()));
    before_ = now_;
    return true;
}
