// What a document has to be as XML, before anybody asks what it says.

#include "providers/container/Scanner.h"

#include <string>

#include "unit/providers/container/ContainerTesting.h"

namespace hwxtest {

namespace {

using namespace container;
using std::string_literals::operator""s;
using ::testing::HasSubstr;
using ::testing::StartsWith;

// A document around a piece of a qualifier declaration's value, which begins in line 2.
std::string Around(const std::string& text) {
  return Document("<QUALIFIER.DECLARATION NAME=\"Q\" TYPE=\"string\"><VALUE>" + text +
                  "</VALUE></QUALIFIER.DECLARATION>\n");
}

// The default value of that declaration.
std::string Loaded(const std::string& document) {
  return Load(document)->GetQualifierDecl("Q", {})->GetDefaultValue({});
}

TEST(Scanner, TakesAllThatBelongsToXML) {
  const std::string rest = Document("");
  for (const std::string& before :
       {""s, "\xEF\xBB\xBF"s, "<?xml version=\"1.0\"?>"s,
        "<?xml version='1.0' encoding='UTF-8'?>\n"s,
        "\xEF\xBB\xBF<?xml version=\"1.0\" encoding=\"utf-8\" standalone=\"yes\"?>"s,
        "<!-- a - comment -->\n<?target data?>"s, "<!DOCTYPE CIM>"s,
        "<!DOCTYPE CIM SYSTEM \"a>b'\" >"s, "<!DOCTYPE CIM PUBLIC '-//x\"' \"y\">"s})
    EXPECT_EQ(WhyRefused(before + rest), "") << before;
  EXPECT_EQ(WhyRefused(rest + "<!-- behind --> <?target?>\r\n"), "");
  EXPECT_EQ(Loaded(Around("a&amp;&lt;&gt;&quot;&apos;&#65;&#x1F600;<![CDATA[<&>]]]]>z")),
            "a&<>\"'A\xF0\x9F\x98\x80<&>]]z");
  EXPECT_EQ(Loaded(Around("a<!-- > & -->b<?target <data> ?>c")), "abc");
  EXPECT_EQ(Loaded(Around("a\r\nb\rc&#13;d")), "a\nb\nc\rd");
}

struct Case {
  const char* text;
  const char* why;
};

TEST(Scanner, RefusesWhatIsNotWellFormedAndTellsTheLine) {
  const Case cases[] = {
      {"<", "malformed XML: a name is missing"},
      {"&", "an ampersand that begins no reference"},
      {"&;", "the entity &; isn't one of XML's own"},
      {"&amp", "an ampersand that begins no reference"},
      {"&unknown;", "the entity &unknown; isn't one of XML's own"},
      {"&#0;", "&#0; is no character that XML can carry"},
      {"&#xD800;", "&#xD800; is no character that XML can carry"},
      {"&#x110000;", "&#x110000; is no character that XML can carry"},
      {"&#9999999999999999;", "an ampersand that begins no reference"},
      {"&#9999999999999;", "&#9999999999999; is no character that XML can carry"},
      {"&#;", "&#; is no character that XML can carry"},
      {"&#x;", "&#x; is no character that XML can carry"},
      {"&#-65;", "&#-65; is no character that XML can carry"},
      {"]]>", "\"]]>\" within a text"},
      {"<a b=1/>", "the attribute b has no quotation mark"},
      {"<a b/>", "malformed XML"},
      {"<a b='1'c='2'/>", "malformed XML in a tag of a"},
      {"<a b='1' b='2'/>", "the attribute b stands twice in one tag"},
      {"<a b='<'/>", "a \"<\" within the attribute b"},
      {"<a b='&unknown;'/>", "the entity &unknown; isn't one of XML's own"},
      {"<a / >", "malformed XML"},
      {"<a>", "a: doesn't belong into VALUE, where text alone is expected"},
      {"</a>", "an end tag of a where VALUE, begun in line 2, has to end"},
      {"<!-- a -- b -->", "a comment with two hyphens in it"},
      {"<!DOCTYPE CIM>", "a document type declaration that isn't in front of the elements"},
      {"<?xml version='1.0'?>", "an XML declaration that isn't at the beginning"},
      {"\x01", "a byte that XML can't carry: \"\\x01\""},
      {"\x80", "a byte that XML can't carry: \"\\x80\""},
      {"\xC0\x80", "a byte that XML can't carry: \"\\xC0\""},
      {"\xED\xA0\x80", "a byte that XML can't carry: \"\\xED\""},
      {"\xEF\xBF\xBF", "a byte that XML can't carry: \"\\xEF\""},
      {"\xF4\x90\x80\x80", "a byte that XML can't carry: \"\\xF4\""},
      {"\xC3", "a byte that XML can't carry: \"\\xC3\""}};
  for (const Case& one : cases) {
    EXPECT_EQ(WhyRefused(Around(one.text)), "file.xml:2: "s + one.why) << one.text;
    EXPECT_EQ(WhyRefused(Around("\n\r\n" + std::string(one.text))).substr(0, 11), "file.xml:4:")
        << one.text;
  }
}

TEST(Scanner, RefusesWhatDoesNotEnd) {
  const Case cases[] = {{"<!-- a", "1: a comment doesn't end"},
                        {"\n<?target", "2: a processing instruction doesn't end"},
                        {"<!DOCTYPE CIM", "1: the document type declaration doesn't end"},
                        {"<!DOCTYPE CIM \"a", "1: a literal doesn't end"},
                        {"<CIM", "1: malformed XML"},
                        {"<CIM a='", "1: the attribute a doesn't end"},
                        {"", "1: no XML document"},
                        {"\n \n", "3: no XML document"},
                        {"text", "1: a text where an element is expected"},
                        {"\xEF\xBB", "1: the file ends within a character"}};
  for (const Case& one : cases)
    EXPECT_THAT(WhyRefused(one.text), StartsWith("file.xml:"s + one.why)) << one.text;
}

TEST(Scanner, RefusesEveryDocumentThatIsCutOff) {
  std::string document = Around("a&amp;<![CDATA[b]]>\xF0\x9F\x98\x80");
  document.pop_back();  // the line feed behind the end may be missing
  for (std::size_t size = 0; size < document.size(); ++size)
    EXPECT_NE(WhyRefused(document.substr(0, size)), "") << size;
  EXPECT_EQ(WhyRefused(document), "");
}

TEST(Scanner, RefusesWhatIsBehindTheDocument) {
  EXPECT_EQ(WhyRefused(Document("") + "text"), "file.xml:3: a text where an element is expected");
  EXPECT_EQ(WhyRefused(Document("") + "<CIM/>"), "file.xml:3: a second element at the top: CIM");
  EXPECT_EQ(WhyRefused(Document("") + "</CIM>"),
            "file.xml:3: an end tag of CIM without a start tag");
  EXPECT_EQ(WhyRefused(Document("") + "<![CDATA[]]>"),
            "file.xml:3: a text where an element is expected");
}

TEST(Scanner, ReadsTheFirstVersionOfXMLAlone) {
  EXPECT_EQ(WhyRefused("<?xml version=\"1.1\"?>" + Document("")), "file.xml:1: not XML 1.0");
}

// Entities that are made of entities, each ten times: they would fill the memory.
TEST(Scanner, RefusesDefinitionsOfEntities) {
  std::string document = "<!DOCTYPE CIM [\n<!ENTITY e0 \"lol\">\n";
  for (int i = 1; i < 10; ++i) {
    document += "<!ENTITY e" + std::to_string(i) + " \"";
    for (int j = 0; j < 10; ++j)
      document += "&e" + std::to_string(i - 1) + ";";
    document += "\">\n";
  }
  EXPECT_EQ(WhyRefused(document + "]>" + Around("&e9;")),
            "file.xml:1: a document type declaration with definitions, which aren't read");
}

TEST(Scanner, RefusesElementsThatNestDeeply) {
  std::string document;
  for (int i = 0; i < 1000000; ++i)
    document += "<a>";
  EXPECT_EQ(WhyRefused(Document("<INSTANCE CLASSNAME='A'><QUALIFIER NAME='Q'>\n" + document)),
            "file.xml:3: elements are nested too deeply");
  EXPECT_THAT(WhyRefused(document),
              HasSubstr("no container: begins with a, where CIM is expected"));
}

TEST(Scanner, RefusesATagWithAttributesWithoutEnd) {
  std::string tag = "<a";
  for (int i = 0; i < 100; ++i)
    tag += " b" + std::to_string(i) + "=''";
  EXPECT_EQ(WhyRefused(Around(tag + "/>")), "file.xml:2: too many attributes");
}

TEST(Scanner, RefusesLargeElementsAndDocuments) {
  TLimits limits;
  limits.fPiece = 1000;
  EXPECT_EQ(WhyRefused(Around(std::string(2000, 'x')), limits),
            "file.xml:2: an element is larger than 1000 bytes");
  EXPECT_EQ(WhyRefused("<!--" + std::string(2000, 'x') + "-->" + Document(""), limits),
            "file.xml:1: an element is larger than 1000 bytes");
  limits = TLimits();
  limits.fDocument = 1000;
  EXPECT_EQ(WhyRefused(Document(std::string(2000, '\n')), limits),
            "file.xml:1: the document is larger than 1000 bytes");
}

}  // namespace

}  // namespace hwxtest
