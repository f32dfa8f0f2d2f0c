// Rules by which the generic argument tests treat an export whose checks deviate from the
// common order.  Family tests register them next to their own cases:
//     NT_GENERIC_RULE(nuvsAdd_16sc_Sfs, nt::LenFirst);
#pragma once
#include <map>
#include <string>

namespace nt {

enum GenericRule : unsigned {
    LenFirst = 1,        // length is checked before the pointers
    NoNegativeLen = 2,   // a negative length is not refused (runs as a huge or empty count)
    NullableSources = 4, // source pointers may be null individually
    SkipGeneric = 8,     // checks are covered by the family test alone
};

inline std::map<std::string, unsigned>& genericRules() {
    static std::map<std::string, unsigned> m;
    return m;
}

struct GenericRuleReg {
    GenericRuleReg(const char* name, unsigned rule) { genericRules()[name] |= rule; }
};

}  // namespace nt

#define NT_CAT2(a, b) a##b
#define NT_CAT(a, b) NT_CAT2(a, b)
#define NT_GENERIC_RULE(name, rule) \
    static const ::nt::GenericRuleReg NT_CAT(ntRule_, __LINE__){#name, (rule)}
