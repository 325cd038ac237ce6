#include <algorithm>
#include <fstream>
#include <map>
#include <set>
#include <sstream>

#include "unit/providers/linux/ProviderFixture.h"

// The published schema beside the facts of the standard, in a file of their own: no class,
// superclass, property, type, key, unit or number may differ.

namespace hwxtest {

namespace {

using namespace NQORHWX20;
using ::testing::Contains;
using ::testing::StartsWith;
using Type = TCIMValue::TCIMType;
using Line = std::vector<std::string>;

std::vector<std::string> Split(const std::string& text, char separator) {
  std::vector<std::string> parts;
  std::istringstream stream(text);
  for (std::string part; std::getline(stream, part, separator);) {
    parts.push_back(part);
  }
  return parts;
}

struct Facts {
  std::map<std::string, Line> classes;                  // class, superclass, kind, successor
  std::map<std::string, std::vector<Line>> properties;  // of a class; see the file's head
};

Facts ReadFacts() {
  Facts facts;
  std::ifstream file(HWX_SOURCE_DIR "/tests/unit/providers/linux/cim-2.49.0.tsv");
  for (std::string text; std::getline(file, text);) {
    const Line line = Split(text, '\t');
    if (text.empty() || text[0] == '#' || line[0] == "class") {
      continue;
    }
    if (line.size() == 4) {
      facts.classes[line[0]] = line;
    } else {
      facts.properties[line[0]].push_back(line);
    }
  }
  return facts;
}

// The numbers that a value map stands for, written in whatever steps; texts as they are.
std::set<std::string> Numbers(const std::vector<std::string>& map) {
  std::set<std::string> numbers;
  for (const std::string& part : map) {
    const std::size_t dots = part.find("..");
    const bool isRange = dots != std::string::npos && dots > 0 && dots + 2 < part.size() &&
                         part.find('x') == std::string::npos;
    if (!isRange) {
      numbers.insert(part);
      continue;
    }
    for (int i = std::stoi(part.substr(0, dots)); i <= std::stoi(part.substr(dots + 2)); ++i) {
      numbers.insert(std::to_string(i));
    }
  }
  return numbers;
}

std::vector<std::string> ElementTexts(const TCIMValue& array) {
  const std::vector<TCIMValue>& elements = array;
  std::vector<std::string> texts;
  for (const TCIMValue& element : elements) {
    texts.push_back(element.ToString(10));
  }
  return texts;
}

class PublishedSchema : public ProviderTest {
 protected:
  // A qualifier's value, null where there is none.
  static TCIMValue Qualifier(ICIMQualifiedElement& element, const std::string& name) {
    try {
      const auto qualifier = element.GetQualifier(name, {});
      return qualifier ? qualifier->GetValue({}) : TCIMValue(Type::kCIMTypeString, 0);
    } catch (const THWXException&) {
      return TCIMValue(Type::kCIMTypeString, 0);
    }
  }

  static std::string QualifierText(ICIMQualifiedElement& element, const std::string& name) {
    const TCIMValue value = Qualifier(element, name);
    return value.IsNull() ? "-" : value.ToString(10);
  }

  static std::string TypeText(ICIMPropertyDecl& property) {
    const Type type = property.GetType({});
    if (type == Type::kCIMTypeReference) {
      return "ref " + property.GetDefaultValue({}).GetReferencedClass()->GetName({});
    }
    return type.ToString() + ((type & Type::kCIMTypeArrayFlag) != 0 ? "[]" : "");
  }

  static std::string Units(ICIMPropertyDecl& property) {
    const std::string expression = QualifierText(property, "PUnit");
    return expression == "-" ? QualifierText(property, "Units") : expression;
  }

  static void ExpectProperty(ICIMPropertyDecl& property, const Line& facts) {
    const std::string name = facts[0] + "." + facts[1];
    EXPECT_EQ(property.GetName({}), facts[1]) << name;
    EXPECT_EQ(TypeText(property), facts[2]) << name;
    if (facts[3] == "key") {
      EXPECT_EQ(QualifierText(property, "Key"), "true") << name;
    }
    EXPECT_EQ(Units(property), facts[4]) << name;
    const TCIMValue map = Qualifier(property, "ValueMap");
    if (facts[5] != "-") {
      ASSERT_FALSE(map.IsNull()) << name;
      EXPECT_EQ(Numbers(ElementTexts(map)), Numbers(Split(facts[5], ','))) << name;
    }
    const TCIMValue values = Qualifier(property, "Values");
    if (!values.IsNull()) {
      EXPECT_EQ(ElementTexts(values).size(), ElementTexts(map).size()) << name;
    }
    EXPECT_EQ(QualifierText(property, "Override"), facts[6]) << name;
    EXPECT_EQ(Qualifier(property, "Deprecated").IsNull(), facts[7] == "-") << name;
    if (facts[8] != "-") {
      EXPECT_EQ(QualifierText(property, "MaxLen"), facts[8]) << name;
    }
  }

  static std::set<std::string> KeysOf(ICIMClass& declaring) {
    std::set<std::string> keys;
    declaring.EnumerateKeyPropertyDecls(
        [&keys](const boost::shared_ptr<ICIMPropertyDecl>& key) {
          keys.insert(key->GetName({}));
          return true;
        },
        {});
    return keys;
  }

  std::vector<boost::shared_ptr<ICIMClass>> AllClasses() {
    std::vector<boost::shared_ptr<ICIMClass>> classes;
    const TAddToVectorCallback<ICIMClass> add(&classes);
    std::vector<boost::shared_ptr<ICIMClass>> roots;
    fNamespace->EnumerateClasses(TAddToVectorCallback<ICIMClass>(&roots), {});
    for (const auto& root : roots) {
      classes.push_back(root);
      root->EnumerateSubClasses(add, true, {});
    }
    return classes;
  }

  const Facts fFacts = ReadFacts();
};

TEST_F(PublishedSchema, HasTheStandardsTree) {
  ASSERT_GT(fFacts.classes.size(), 60u);
  for (const auto& [name, facts] : fFacts.classes) {
    const auto found = fNamespace->GetClass(name, {});
    const bool isRoot = facts[1] == "-";
    ASSERT_EQ(found->IsRootClass({}), isRoot) << name;
    if (!isRoot) {
      EXPECT_EQ(found->GetSuperClass({})->GetName({}), facts[1]) << name;
    }
    EXPECT_EQ(found->IsAbstract({}), facts[2].find("abstract") != std::string::npos) << name;
    EXPECT_EQ(found->IsAssociation({}), facts[2].find("association") != std::string::npos) << name;
  }
}

TEST_F(PublishedSchema, HasTheStandardsProperties) {
  for (const auto& [name, lines] : fFacts.properties) {
    const auto found = fNamespace->GetClass(name, {});
    for (const Line& facts : lines) {
      ASSERT_NO_THROW(found->GetPropertyDecl(facts[1], {})) << name << "." << facts[1];
      ExpectProperty(*found->GetPropertyDecl(facts[1], {}), facts);
    }
  }
}

TEST_F(PublishedSchema, HasTheStandardsKeysAlone) {
  for (const auto& [name, facts] : fFacts.classes) {
    std::set<std::string> keys;
    for (std::string up = name; up != "-"; up = fFacts.classes.at(up)[1]) {
      const auto lines = fFacts.properties.find(up);
      for (const Line& line :
           lines == fFacts.properties.end() ? std::vector<Line>() : lines->second) {
        if (line[3] == "key") {
          keys.insert(line[1]);
        }
      }
    }
    EXPECT_EQ(KeysOf(*fNamespace->GetClass(name, {})), keys) << name;
  }
}

TEST_F(PublishedSchema, HasNothingOfItsOwnByTheStandardsName) {
  for (const auto& found : AllClasses()) {
    const std::string name = found->GetName({});
    if (name.rfind("CIM_", 0) != 0) {
      EXPECT_THAT(name, StartsWith("QORSG_"));
      continue;
    }
    ASSERT_EQ(fFacts.classes.count(name), 1u) << name;
    std::set<std::string> known;
    for (std::string up = name; up != "-"; up = fFacts.classes.at(up)[1]) {
      const auto lines = fFacts.properties.find(up);
      for (const Line& line :
           lines == fFacts.properties.end() ? std::vector<Line>() : lines->second) {
        known.insert(line[1]);
      }
    }
    found->EnumeratePropertyDecls(
        [&](const boost::shared_ptr<ICIMPropertyDecl>& property) {
          EXPECT_THAT(known, Contains(property->GetName({}))) << name;
          return true;
        },
        {});
  }
}

TEST_F(PublishedSchema, HasWordsForItsNumbers) {
  const auto type =
      fNamespace->GetClass("CIM_PhysicalMemory", {})->GetPropertyDecl("MemoryType", {});
  const std::vector<std::string> numbers = ElementTexts(Qualifier(*type, "ValueMap"));
  const std::vector<std::string> words = ElementTexts(Qualifier(*type, "Values"));
  EXPECT_EQ(numbers.at(26), "26");
  EXPECT_EQ(words.at(26), "DDR4");
  EXPECT_EQ(numbers.at(31), "31..32567");
  EXPECT_EQ(words.at(31), "DMTF Reserved");
}

}  // namespace

}  // namespace hwxtest
