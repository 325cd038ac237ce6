#include "support/MadeSchema.h"

#include <random>
#include <string>
#include <vector>

#include "hwxkit/hwxkit.h"

using namespace NQORHWX20;

namespace hwxtest {

namespace {

using Type = TCIMValue::TCIMType;

struct MadeClass {
  unsigned fTree;
  unsigned fDepth;
};

class SchemaMaker {
 public:
  SchemaMaker(const boost::shared_ptr<TMemoryNamespace>& ns, const MadeSchemaPlan& plan)
      : fNamespace(ns), fPlan(plan), fRandom(plan.fSeed) {}

  void Make() {
    for (unsigned number = 0; number < fPlan.fClasses; ++number)
      MakeClass(number);
  }

 private:
  static std::string Name(unsigned number) { return "EX_" + std::to_string(number); }

  unsigned Below(unsigned limit) { return static_cast<unsigned>(fRandom() % limit); }
  bool OneIn(unsigned count) { return Below(count) == 0; }

  bool IsAssociation(const MadeClass& made) const {
    return made.fTree >= fPlan.fTrees - fPlan.fTrees / 4;
  }

  // The roots come first; then each class is put below an earlier one of any tree.
  void MakeClass(unsigned number) {
    MadeClass made = {number, 0};
    std::string superclass;
    if (number >= fPlan.fTrees) {
      const unsigned above = PickSuperclass();
      superclass = Name(above);
      made = {fClasses[above].fTree, fClasses[above].fDepth + 1};
    }
    TClassBuilder builder(fNamespace, Name(number), superclass);
    builder.Description("The class number " + std::to_string(number) + ".");
    builder.Qualifier("Version", "2." + std::to_string(number % 40) + ".0");
    if (superclass.empty() && IsAssociation(made)) builder.Association();
    if (OneIn(5)) builder.Abstract();
    AddProperties(builder, number, made, superclass);
    if (number % 4 == 0) AddMethod(builder, number);
    if (number % 6 == 1 && !superclass.empty()) builder.StaticValue("Common", TCIMValue(number));
    builder.Commit();
    fClasses.push_back(made);
  }

  unsigned PickSuperclass() {
    for (;;) {
      // Late ones more often, which makes the trees deep.
      const auto count = static_cast<unsigned>(fClasses.size());
      const unsigned picked = OneIn(2) ? Below(count) : count - 1 - Below(std::min(count, 60U));
      if (fClasses[picked].fDepth + 1 < fPlan.fMaxDepth) return picked;
    }
  }

  void AddProperties(TClassBuilder& builder, unsigned number, const MadeClass& made,
                     const std::string& superclass) {
    const std::string suffix = std::to_string(number);
    if (superclass.empty()) {
      builder.Key("Id", "string", "The key.").Qualifier("MaxLen", 64U);
      builder.PropertyWithDefault("Common", 7U, "What all have.").Qualifier("Units", "Bytes");
    } else if (OneIn(3)) {
      builder.PropertyWithDefault("Common", number, "Overridden in class " + suffix);
    }
    for (unsigned count = Below(5); count > 0; --count) {
      static const char* const kTypes[] = {"boolean", "uint8",  "sint8",  "uint16",  "sint16",
                                           "uint32",  "sint32", "uint64", "sint64",  "real32",
                                           "real64",  "char16", "string", "datetime"};
      const std::string type = kTypes[Below(14)] + std::string(OneIn(4) ? "[]" : "");
      builder.Property("P" + suffix + "_" + std::to_string(count), type.c_str(), "One of them.");
      if (OneIn(3)) builder.Qualifier("Required", true);
    }
    const std::vector<TCIMValue> map = {"0", "1", ".."};
    if (OneIn(4)) {
      builder.PropertyWithDefault("State" + suffix, static_cast<unsigned short>(number))
          .Qualifier("ValueMap", TCIMValue(Type::kCIMTypeString, 0, map));
    }
    if (OneIn(6)) builder.PropertyWithDefault("Text" + suffix, "a \"quoted\" \\ text\n");
    AddReferences(builder, number, made);
  }

  // A class of this tree or of an earlier one that isn't an association: it will have been copied.
  void AddReferences(TClassBuilder& builder, unsigned number, const MadeClass& made) {
    unsigned wanted = IsAssociation(made) ? 2 : OneIn(6) ? 1 : 0;
    for (unsigned tries = 0; wanted > 0 && tries < 50 && number > 0; ++tries) {
      const unsigned to = Below(number);
      if (IsAssociation(fClasses[to]) || fClasses[to].fTree > made.fTree) continue;
      builder.Reference("Ref" + std::to_string(number) + "_" + std::to_string(wanted--), Name(to));
    }
    if (fForward < fPlan.fForwardReferences && made.fTree + 1 < fPlan.fTrees / 2 &&
        made.fDepth > 0) {
      builder.Reference("Forward" + std::to_string(fForward++), Name(made.fTree + 1));
    }
  }

  void AddMethod(TClassBuilder& builder, unsigned number) {
    // Few names, so that some override.
    builder.Method("Do" + std::to_string(number % 3), "uint32", "Does it.")
        .Parameter("First", "string")
        .Qualifier("In", true)
        .Parameter("Second", "uint16[]", "Comes back.")
        .Qualifier("Out", true);
  }

  const boost::shared_ptr<TMemoryNamespace> fNamespace;
  const MadeSchemaPlan fPlan;
  std::mt19937 fRandom;
  std::vector<MadeClass> fClasses;
  unsigned fForward = 0;
};

}  // namespace

void MakeSchema(const boost::shared_ptr<TMemoryNamespace>& ns, const MadeSchemaPlan& plan) {
  SchemaMaker(ns, plan).Make();
}

}  // namespace hwxtest
