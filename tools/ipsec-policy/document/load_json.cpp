#include "load_json.h"

Json elementsMember(const LoadFault& fault)
{
    Json names = Json::array();
    for (const std::string& name : fault.openElements)
        names.push_back(name.empty() ? Json() : Json(name));
    return names;
}

void addFault(Json& object, const LoadFault& fault)
{
    object["elements"] = elementsMember(fault);
    if (fault.repeatsID())
        object["first"] = {{"line", fault.firstPosition.line}, {"column", fault.firstPosition.column}};
}
