// Documents from anywhere: each is refused with the place of the fault, or loads, and then saves to
// bytes that load to the same once more.

#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "Require.h"
#include "hwxkit/NamespaceCopy.h"
#include "hwxkit/TContainerException.h"
#include "hwxkit/TMemoryNamespace.h"
#include "providers/container/MofWriter.h"
#include "providers/container/Reader.h"
#include "providers/container/Writer.h"

namespace {

using fuzz::Require;
using namespace container;
using NQORHWX20::TContainerException;
using NQORHWX20::TMemoryNamespace;
using Bytes = std::vector<std::uint8_t>;

// Small, so that the limits are met too.
TLimits Limits() {
  TLimits limits;
  limits.fDocument = 100000;
  limits.fPiece = 20000;
  limits.fMemory = 1000000;
  return limits;
}

TReading Reading(const TLimits& limits, const char* chosen = "") {
  TReading reading;
  reading.fLimits = limits;
  reading.fNamespace = chosen;
  reading.fWarn = [](const std::string& line) {
    Require(line.compare(0, 6, "file: ") == 0);
    Require(line.size() < 2000);
  };
  return reading;
}

boost::shared_ptr<TMemoryNamespace> Load(std::string_view document, const TLimits& limits,
                                         const char* chosen = "") {
  TMemorySource source(document);
  return ReadContainer(source, "file", Reading(limits, chosen));
}

std::string Save(TMemoryNamespace& ns) {
  TStringSink sink;
  WriteContainer(ns, sink, "file");
  return sink.Bytes();
}

void CheckDocument(std::string_view document, const char* chosen) {
  boost::shared_ptr<TMemoryNamespace> ns;
  try {
    ns = Load(document, Limits(), chosen);
  } catch (const TContainerException& failure) {
    Require(std::strncmp(failure.what(), "file:", 5) == 0);
    return;
  }
  TStringSink mof;
  WriteMof(*ns, mof, "file");
  const std::string saved = Save(*ns);
  const auto again = Load(saved, TLimits());
  Require(Save(*again) == saved);
  const auto copy = TMemoryNamespace::Create(again->GetName(NQORHWX20::TCIMContext()));
  NQORHWX20::CopySchema(*again, copy, NQORHWX20::TCopyFailure());
}

// Whatever is no gzip file is told, whatever is one is a document.
void CheckCompressed(std::string_view bytes) {
  TMemorySource source(bytes);
  TGunzipSource expanded(source, "file", Limits());
  try {
    ReadContainer(expanded, "file", Reading(Limits()));
  } catch (const TContainerException& failure) {
    Require(std::strncmp(failure.what(), "file:", 5) == 0);
  }
}

const char kSchema[] = R"(<?xml version="1.0" encoding="utf-8"?>
<CIM CIMVERSION="2.0" DTDVERSION="2.0"><DECLARATION><DECLGROUP.WITHNAME>
<LOCALNAMESPACEPATH><NAMESPACE NAME="root"/></LOCALNAMESPACEPATH>
<QUALIFIER.DECLARATION NAME="Key" TYPE="boolean" ISARRAY="false" OVERRIDABLE="false"><SCOPE
 PROPERTY="true"/><VALUE>false</VALUE></QUALIFIER.DECLARATION>
<VALUE.NAMEDOBJECT><CLASS NAME="A"><PROPERTY NAME="K" TYPE="string" CLASSORIGIN="A">
<QUALIFIER NAME="Key" TYPE="boolean" OVERRIDABLE="false"><VALUE>true</VALUE></QUALIFIER></PROPERTY>
<PROPERTY NAME="T" TYPE="datetime"><VALUE>20070102030405.000006+060</VALUE></PROPERTY>
<PROPERTY NAME="R" TYPE="real64"><VALUE FORM="bits">fff8000000001234</VALUE></PROPERTY>
<PROPERTY.ARRAY NAME="C" TYPE="char16" ARRAYSIZE="3"/>
</CLASS></VALUE.NAMEDOBJECT>
<VALUE.NAMEDOBJECT><CLASS NAME="B" SUPERCLASS="A"><PROPERTY.REFERENCE NAME="O"
 REFERENCECLASS="A"/><METHOD NAME="M" TYPE="uint8"><PARAMETER.REFARRAY NAME="P"/></METHOD>
</CLASS></VALUE.NAMEDOBJECT>
)";

const char kContent[] =
    R"(<STATIC CLASSNAME="B"><PROPERTY NAME="K" TYPE="string"/></STATIC>
<VALUE.NAMEDOBJECT><INSTANCENAME CLASSNAME="B"><KEYBINDING NAME="K"><KEYVALUE VALUETYPE="string"
 FORM="escaped">\x00&lt;\\</KEYVALUE></KEYBINDING></INSTANCENAME><INSTANCE CLASSNAME="B">
<PROPERTY NAME="T" TYPE="datetime"><VALUE FORM="fields">interval 1 2 3 4 5</VALUE></PROPERTY>
<PROPERTY NAME="R" TYPE="real64"><VALUE>-1.5e3</VALUE></PROPERTY>
<PROPERTY.ARRAY NAME="C" TYPE="char16"><VALUE.ARRAY><VALUE>x</VALUE><VALUE.NULL/><VALUE
 FORM="cleared"/></VALUE.ARRAY></PROPERTY.ARRAY>
<PROPERTY.REFERENCE NAME="O"><VALUE.REFERENCE><LOCALINSTANCEPATH><LOCALNAMESPACEPATH><NAMESPACE
 NAME="x"/></LOCALNAMESPACEPATH><INSTANCENAME CLASSNAME="A"><KEYBINDING NAME="K"><KEYVALUE>&amp;
</KEYVALUE></KEYBINDING></INSTANCENAME></LOCALINSTANCEPATH></VALUE.REFERENCE></PROPERTY.REFERENCE>
</INSTANCE></VALUE.NAMEDOBJECT>
)";

const char kEnd[] = "</DECLGROUP.WITHNAME></DECLARATION></CIM>\n";

// What others write.
const char kOthers[] =
    R"(<CIM CIMVERSION="2.0" DTDVERSION="2.3"><DECLARATION><DECLGROUP.WITHPATH>
<VALUE.OBJECTWITHPATH><INSTANCEPATH><NAMESPACEPATH><HOST>h</HOST><LOCALNAMESPACEPATH><NAMESPACE
 NAME="x"/></LOCALNAMESPACEPATH></NAMESPACEPATH><INSTANCENAME CLASSNAME="A"><KEYVALUE>k</KEYVALUE>
</INSTANCENAME></INSTANCEPATH><INSTANCE CLASSNAME="A" xml:lang="en"><QUALIFIER NAME="Q"
 TYPE="string"/><PROPERTY NAME="T" TYPE="datetime"><VALUE>2007**********.******+060</VALUE>
</PROPERTY></INSTANCE></VALUE.OBJECTWITHPATH></DECLGROUP.WITHPATH><DECLGROUP><LOCALNAMESPACEPATH>
<NAMESPACE NAME="y"/></LOCALNAMESPACEPATH><VALUE.OBJECT><CLASS NAME="Z"/></VALUE.OBJECT></DECLGROUP>
<DECLGROUP><CLASS NAME="A" SUPERCLASS="Far"><PROPERTY NAME="K" TYPE="string" PROPAGATED="true"
 CLASSORIGIN="Far"><QUALIFIER NAME="Key" TYPE="boolean" TOINSTANCE="true" xml:lang="de"><VALUE>true
</VALUE></QUALIFIER></PROPERTY><PROPERTY NAME="T" TYPE="datetime" EmbeddedObject="object"/>
<PROPERTY.REFERENCE NAME="R" REFERENCECLASS="B"/><METHOD NAME="M"><PARAMETER.REFARRAY NAME="P"
 REFERENCECLASS="B" ARRAYSIZE="3"/></METHOD></CLASS><CLASS NAME="B" SUPERCLASS="A"/>
<QUALIFIER.DECLARATION NAME="Q" TYPE="string"><SCOPE ANY="true"/></QUALIFIER.DECLARATION>
</DECLGROUP></DECLARATION></CIM>
)";

const char kMessage[] =
    R"(<CIM CIMVERSION="2.0" DTDVERSION="2.3"><MESSAGE ID="1" PROTOCOLVERSION="1.0"><SIMPLERSP>
<IMETHODRESPONSE NAME="EnumerateInstances"><IRETURNVALUE><VALUE.NAMEDINSTANCE><INSTANCENAME
 CLASSNAME="A"><KEYBINDING NAME="K"><KEYVALUE VALUETYPE="numeric">-5</KEYVALUE></KEYBINDING>
<KEYBINDING NAME="R"><VALUE.REFERENCE><INSTANCENAME CLASSNAME="F"><KEYBINDING NAME="N"><KEYVALUE>x
</KEYVALUE></KEYBINDING></INSTANCENAME></VALUE.REFERENCE></KEYBINDING></INSTANCENAME><INSTANCE
 CLASSNAME="A"><PROPERTY.ARRAY NAME="P" TYPE="string"><VALUE.ARRAY><VALUE>x</VALUE><VALUE.NULL/>
</VALUE.ARRAY></PROPERTY.ARRAY></INSTANCE></VALUE.NAMEDINSTANCE></IRETURNVALUE></IMETHODRESPONSE>
</SIMPLERSP></MESSAGE></CIM>
)";

const char kNotes[] =
    R"(<CIM CIMVERSION="2.0" DTDVERSION="2.4"><DECLARATION><DECLGROUP.WITHNAME><VALUE.NAMEDOBJECT>
<CLASS NAME="A"><PROPERTY NAME="T" TYPE="datetime"><!--hwx cleared--></PROPERTY><PROPERTY NAME="S"
 TYPE="string"><!--hwx escaped--><VALUE>\x00</VALUE></PROPERTY><PROPERTY.ARRAY NAME="C"
 TYPE="char16"><VALUE.ARRAY><!--hwx escaped \u0001--><VALUE>?</VALUE><!--hwx cleared--><VALUE.NULL/>
</VALUE.ARRAY></PROPERTY.ARRAY><PROPERTY NAME="R" TYPE="real64"><!--hwx bits fff8000000001234-->
<VALUE>NaN</VALUE></PROPERTY></CLASS></VALUE.NAMEDOBJECT><!--hwx static
<STATIC CLASSNAME="A"><PROPERTY NAME="S" TYPE="string"><VALUE>-&#45;</VALUE></PROPERTY></STATIC>
--></DECLGROUP.WITHNAME></DECLARATION></CIM>
)";

std::string Wide(const std::string& text) {
  std::string wide = "\xFF\xFE";
  for (const char c : text)
    wide.append(1, c).append(1, '\0');
  return wide;
}

Bytes Seed(const std::string& text) {
  return Bytes(text.begin(), text.end());
}

}  // namespace

std::vector<Bytes> FuzzSeeds() {
  const std::string whole = std::string(kSchema) + kContent + kEnd;
  Require(Load(whole, Limits())->GetClassCount(NQORHWX20::TCIMContext()) == 2);
  Require(Load(kOthers, Limits(), "x")->GetClassCount(NQORHWX20::TCIMContext()) == 2);
  Require(Load(kMessage, Limits())->GetClassCount(NQORHWX20::TCIMContext()) == 1);
  Require(Load(Wide(kNotes), Limits())->GetClassCount(NQORHWX20::TCIMContext()) == 1);
  TStringSink compressed;
  TGzipSink sink(compressed);
  sink.Write(whole);
  sink.Finish();
  return {Seed(whole),
          Seed(std::string(kSchema) + kEnd),
          Seed(compressed.Bytes()),
          Seed(kOthers),
          Seed(kMessage),
          Seed(kNotes),
          Seed(Wide(kNotes)),
          Seed("<!DOCTYPE CIM [<!ENTITY a \"b\">]><CIM><![CDATA[&a;]]><!-- c --></CIM>")};
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  CheckDocument(bytes, "");
  CheckDocument(bytes, "x");
  CheckCompressed(bytes);
  return 0;
}
