#include "faults/public_operations.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace ipsecimpl {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(PublicOperations, AreTheFunctionsOfNamespacesAndThePublicOnesOfClasses)
{
    EXPECT_THAT(
        publicOperations("namespace n {\nMARK int& f();\nclass IPSECIMPL_API C : public B {\n  void hidden();\n"
                         "  public:\n    explicit C(int a,\n      int b);\n    bool operator==(const C& c) const"
                         " { if (a) { return f(b); } }\n    static C make() noexcept;\n  private:\n    int g();\n"
                         "};\nstruct S { void s(); };\nvoid after(S s);\n}"),
        ElementsAre("f()", "C::C(int a, int b)", "C::operator==(const C& c) const", "C::make()", "S::s()",
                    "after(S s)"));
}

TEST(PublicOperations, AreNeitherDeletedNorDefinedTwiceNorTypesNorVariables)
{
    EXPECT_THAT(
        publicOperations("// void commented();\n#define MACRO(x) f(x)\nclass C { public: C(const C&) = delete;\n"
                         "int field = 3; using T = int; };\nC::C(int a) : field(a) {}\n"
                         "extern template int E<3>::to_int(const std::string&);\nextern const C CONSTANT;\n"),
        IsEmpty());
}

} // namespace
} // namespace ipsecimpl
