// Documents from anywhere: each is refused with the place of the fault, or loads, and then saves to
// bytes that load to the same once more.

#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "Require.h"
#include "hwxkit/TContainerException.h"
#include "hwxkit/TMemoryNamespace.h"
#include "providers/container/Reader.h"
#include "providers/container/Writer.h"

namespace {

using fuzz::Require;
using namespace container;
using NQORHWX20::TContainerException;
using NQORHWX20::TMemoryNamespace;
typedef std::vector<std::uint8_t> Bytes;

// Small, so that the limits are met too.
TLimits Limits() {
  TLimits limits;
  limits.fDocument = 100000;
  limits.fPiece = 20000;
  limits.fWeight = 1000;
  return limits;
}

boost::shared_ptr<TMemoryNamespace> Load(std::string_view document, const TLimits& limits) {
  TMemorySource source(document);
  return ReadContainer(source, "file", limits);
}

std::string Save(TMemoryNamespace& ns) {
  TStringSink sink;
  WriteContainer(ns, sink, "file");
  return sink.Bytes();
}

void CheckDocument(std::string_view document) {
  boost::shared_ptr<TMemoryNamespace> ns;
  try {
    ns = Load(document, Limits());
  } catch (const TContainerException& failure) {
    Require(std::strncmp(failure.what(), "file:", 5) == 0);
    return;
  }
  const std::string saved = Save(*ns);
  Require(Save(*Load(saved, TLimits())) == saved);
}

// Whatever is no gzip file is told, whatever is one is a document.
void CheckCompressed(std::string_view bytes) {
  TMemorySource source(bytes);
  TGunzipSource expanded(source, "file");
  try {
    ReadContainer(expanded, "file", Limits());
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

Bytes Seed(const std::string& text) {
  return Bytes(text.begin(), text.end());
}

}  // namespace

std::vector<Bytes> FuzzSeeds() {
  const std::string whole = std::string(kSchema) + kContent + kEnd;
  Require(Load(whole, Limits())->GetClassCount(NQORHWX20::TCIMContext()) == 2);
  TStringSink compressed;
  TGzipSink sink(compressed);
  sink.Write(whole);
  sink.Finish();
  return {Seed(whole), Seed(std::string(kSchema) + kEnd), Seed(compressed.Bytes()),
          Seed("<!DOCTYPE CIM [<!ENTITY a \"b\">]><CIM><![CDATA[&a;]]><!-- c --></CIM>")};
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  CheckDocument(bytes);
  CheckCompressed(bytes);
  return 0;
}
