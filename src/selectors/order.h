#ifndef IPSECIMPL_SELECTORS_ORDER_H
#define IPSECIMPL_SELECTORS_ORDER_H

namespace ipsecimpl {

/// -1, 0 or 1 as `a` is smaller than, equal to, or greater than `b`.
template <class Value>
constexpr int order(const Value& a, const Value& b)
{
    return a < b ? -1 : (b < a ? 1 : 0);
}

} // namespace ipsecimpl

#endif
