#include "workbench/simapp/paramstore.h"

#include "link/paramkinds.h"

#include <algorithm>

ParamStore::ParamStore()
{
    for (auto row = paramKindsBegin(); row != paramKindsEnd(); ++row)
        current_[row->kind].resize(row->size);
    default_ = current_;
}

const ParamStore::Record &ParamStore::find(const Records &records, uint32_t kind)
{
    static const Record none;
    const auto found = records.find(kind);
    return found == records.end() ? none : found->second;
}

bool ParamStore::store(uint32_t kind, const uint8_t *record, size_t size)
{
    const auto found = current_.find(kind);
    if (found == current_.end())
        return false;
    std::copy_n(record, std::min(size, found->second.size()), found->second.begin());
    return true;
}
