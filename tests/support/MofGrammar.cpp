#include "support/MofGrammar.h"

#include <algorithm>
#include <cctype>
#include <stdexcept>

namespace hwxtest {

namespace {

enum class Kind { kWord, kString, kCharacter, kNumber, kMark, kEnd };

struct Token {
  Kind kind;
  std::string text;
};

bool IsWordCharacter(char c) {
  return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_' || (c & 0x80) != 0;
}

std::string Lower(std::string text) {
  for (char& c : text)
    c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return text;
}

// Cuts a text into tokens.
class Lexer {
 public:
  explicit Lexer(const std::string& text) : fText(text) {}

  Token Next() {
    SkipBlanksAndComments();
    if (fAt == fText.size()) return {Kind::kEnd, ""};
    const char c = fText[fAt];
    if (c == '"') return Quoted('"', Kind::kString);
    if (c == '\'') return Quoted('\'', Kind::kCharacter);
    if (std::isdigit(static_cast<unsigned char>(c)) != 0 || c == '-' || c == '+') return Number();
    if (IsWordCharacter(c)) {
      const std::size_t start = fAt;
      while (fAt < fText.size() && IsWordCharacter(fText[fAt]))
        ++fAt;
      return {Kind::kWord, fText.substr(start, fAt - start)};
    }
    ++fAt;
    return {Kind::kMark, std::string(1, c)};
  }

  std::size_t Line() const {
    std::size_t line = 1;
    for (std::size_t i = 0; i < fAt; ++i)
      line += fText[i] == '\n' ? 1 : 0;
    return line;
  }

  [[noreturn]] void Fail(const std::string& why) const {
    throw std::runtime_error("line " + std::to_string(Line()) + ": " + why);
  }

 private:
  void SkipBlanksAndComments() {
    for (;;) {
      while (fAt < fText.size() && std::isspace(static_cast<unsigned char>(fText[fAt])) != 0)
        ++fAt;
      if (fText.compare(fAt, 2, "/*") == 0) {
        fAt = fText.find("*/", fAt + 2);
        if (fAt == std::string::npos) throw std::runtime_error("a comment without end");
        fAt += 2;
      } else if (fText.compare(fAt, 2, "//") == 0) {
        fAt = std::min(fText.find('\n', fAt), fText.size());
      } else {
        return;
      }
    }
  }

  // Neighbouring strings are one string.
  Token Quoted(char quote, Kind kind) {
    std::string text;
    ++fAt;
    while (fAt < fText.size() && fText[fAt] != quote) {
      if (fText[fAt] == '\n' || fText[fAt] == '\0') Fail("a control character in a string");
      if (fText[fAt] != '\\') {
        text += fText[fAt++];
        continue;
      }
      text += Escape();
    }
    if (fAt == fText.size()) Fail("a string without end");
    ++fAt;
    if (kind == Kind::kCharacter && text.empty()) Fail("a character without content");
    return {kind, text};
  }

  std::string Escape() {
    const char c = fText.at(fAt + 1);
    fAt += 2;
    const std::string plain = "btnfr\"'\\";
    const std::string meant = "\b\t\n\f\r\"'\\";
    const std::size_t found = plain.find(c);
    if (found != std::string::npos) return std::string(1, meant[found]);
    if (c != 'x' && c != 'X') Fail("an escape that isn't known");
    unsigned int code = 0;
    int digits = 0;
    while (digits < 4 && fAt < fText.size() &&
           std::isxdigit(static_cast<unsigned char>(fText[fAt])) != 0) {
      code = code * 16 +
             static_cast<unsigned int>(std::stoul(std::string(1, fText[fAt++]), nullptr, 16));
      ++digits;
    }
    if (digits == 0) Fail("an escape without digits");
    return code < 256 ? std::string(1, static_cast<char>(code)) : "?";
  }

  Token Number() {
    const std::size_t start = fAt++;
    while (fAt < fText.size() &&
           (IsWordCharacter(fText[fAt]) || fText[fAt] == '.' ||
            ((fText[fAt] == '-' || fText[fAt] == '+') && Lower(fText.substr(fAt - 1, 1)) == "e")))
      ++fAt;
    const std::string text = fText.substr(start, fAt - start);
    if (text.find_first_not_of("0123456789.eE+-xXabcdfABCDF") != std::string::npos)
      Fail("no number: " + text);
    return {Kind::kNumber, text};
  }

  const std::string& fText;
  std::size_t fAt = 0;
};

class Parser {
 public:
  explicit Parser(const std::string& text) : fLexer(text), fToken(fLexer.Next()) {}

  Mof Read() {
    while (fToken.kind != Kind::kEnd) {
      if (TakeIf("#")) {
        ReadPragma();
      } else if (IsWord("qualifier")) {
        ReadQualifierDecl();
      } else {
        const auto qualifiers = Qualifiers();
        if (IsWord("class"))
          ReadClass(qualifiers);
        else
          ReadInstance();
      }
    }
    return fMof;
  }

 private:
  bool IsWord(const std::string& word) const {
    return fToken.kind == Kind::kWord && Lower(fToken.text) == word;
  }

  std::string Take() {
    const std::string text = fToken.text;
    fToken = fLexer.Next();
    return text;
  }

  bool TakeIf(const std::string& mark) {
    if (fToken.kind != Kind::kMark || fToken.text != mark) return false;
    Take();
    return true;
  }

  void Expect(const std::string& mark) {
    if (!TakeIf(mark)) fLexer.Fail("\"" + fToken.text + "\" instead of \"" + mark + "\"");
  }

  void ExpectWord(const std::string& word) {
    if (!IsWord(word)) fLexer.Fail("\"" + fToken.text + "\" instead of \"" + word + "\"");
    Take();
  }

  std::string Name() {
    if (fToken.kind != Kind::kWord) fLexer.Fail("\"" + fToken.text + "\" is no name");
    return Take();
  }

  void ReadPragma() {
    ExpectWord("pragma");
    const std::string name = Name();
    Expect("(");
    fMof.pragmas[name] = Value();
    Expect(")");
  }

  std::string Value() {
    if (TakeIf("{")) {
      std::string values = "{";
      while (!TakeIf("}")) {
        values += (values.size() > 1 ? "," : "") + Value();
        if (fToken.text != "}") Expect(",");
      }
      return values + "}";
    }
    if (fToken.kind == Kind::kString) return "\"" + Take() + "\"";
    if (fToken.kind == Kind::kCharacter) return "'" + Take() + "'";
    if (fToken.kind == Kind::kNumber) return Take();
    if (IsWord("true") || IsWord("false") || IsWord("null")) return Lower(Take());
    fLexer.Fail("\"" + fToken.text + "\" is no value");
  }

  std::string Words(const std::string& end) {
    std::string words;
    while (!TakeIf(end))
      words += (words.empty() ? "" : " ") + Take();
    return words;
  }

  void ReadQualifierDecl() {
    Take();
    const std::string name = Name();
    Mof::Element& decl = fMof.qualifierDecls[name];
    Expect(":");
    decl.declaration = Name();
    decl.declaration += Extent();
    if (TakeIf("=")) decl.value = Value();
    Expect(",");
    ExpectWord("scope");
    Expect("(");
    decl.qualifiers["scope"] = Words(")");
    if (TakeIf(",")) {
      ExpectWord("flavor");
      Expect("(");
      decl.qualifiers["flavor"] = Words(")");
    }
    Expect(";");
  }

  std::map<std::string, std::string> Qualifiers() {
    std::map<std::string, std::string> qualifiers;
    if (!TakeIf("[")) return qualifiers;
    do {
      const std::string name = Name();
      std::string value = "true";
      if (TakeIf("(")) {
        value = Value();
        Expect(")");
      } else if (fToken.text == "{") {
        value = Value();
      }
      if (TakeIf(":")) {
        while (fToken.kind == Kind::kWord)
          value += " " + Take();
      }
      if (!qualifiers.emplace(name, value).second) fLexer.Fail(name + " stands twice");
    } while (TakeIf(","));
    Expect("]");
    return qualifiers;
  }

  std::string Extent() {
    if (!TakeIf("[")) return "";
    if (TakeIf("]")) return " []";
    const std::string size = Take();
    Expect("]");
    return " [" + size + "]";
  }

  void ReadClass(const std::map<std::string, std::string>& qualifiers) {
    Take();
    const std::string name = Name();
    Mof::Class& made = fMof.classes[name];
    made.qualifiers = qualifiers;
    if (TakeIf(":")) made.superclass = Name();
    Expect("{");
    while (!TakeIf("}"))
      ReadMember(made);
    Expect(";");
  }

  void ReadMember(Mof::Class& made) {
    Mof::Element element;
    element.qualifiers = Qualifiers();
    element.declaration = Name();
    element.declaration += Extent();
    std::string name = Name();
    if (Lower(name) == "ref") {
      element.declaration += " REF";
      name = Name();
    }
    if (TakeIf("(")) {
      ReadParameters(made.parameters[name]);
      made.methods[name] = element;
    } else {
      element.declaration += Extent();
      if (TakeIf("=")) element.value = Value();
      made.properties[name] = element;
    }
    Expect(";");
  }

  void ReadParameters(std::map<std::string, Mof::Element>& parameters) {
    if (TakeIf(")")) return;
    do {
      Mof::Element element;
      element.qualifiers = Qualifiers();
      element.declaration = Name();
      std::string name = Name();
      if (Lower(name) == "ref") {
        element.declaration += " REF";
        name = Name();
      }
      element.declaration += Extent();
      parameters[name] = element;
    } while (TakeIf(","));
    Expect(")");
  }

  void ReadInstance() {
    ExpectWord("instance");
    ExpectWord("of");
    Mof::Instance& instance = fMof.instances.emplace_back();
    instance.className = Name();
    Expect("{");
    while (!TakeIf("}")) {
      const std::string name = Name();
      Expect("=");
      instance.values[name] = Value();
      Expect(";");
    }
    Expect(";");
  }

  Lexer fLexer;
  Token fToken;
  Mof fMof;
};

}  // namespace

Mof ReadMof(const std::string& text) {
  return Parser(text).Read();
}

}  // namespace hwxtest
