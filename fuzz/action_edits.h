#ifndef IPSECIMPL_FUZZ_ACTION_EDITS_H
#define IPSECIMPL_FUZZ_ACTION_EDITS_H

#include "input.h"
#include "model.h"

#include <string>

namespace ipsecimpl {

/// Why the library refuses `step`; empty if it does not. Any other exception ends the program.
template <class Exception, class Step>
model::Refusal refusalOf(Step step)
{
    try {
        step();
        return "";
    } catch (const Exception& exception) {
        return exception.what();
    }
}

/// A new action, and what it holds.
struct NewAction {
    explicit NewAction(Program& program);

    IPsecAction   action;
    model::Action holds;
};

/// One step with an action that the program chooses, taken by the library and by the model.
void editAction(Program& program, IPsecAction& action, model::Action& expected);

} // namespace ipsecimpl

#endif
