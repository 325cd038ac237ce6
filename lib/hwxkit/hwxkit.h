#ifndef HWXKIT_HWXKIT_H
#define HWXKIT_HWXKIT_H

// The whole kit for writing namespace providers.

#include "hwxkit/CIMName.h"
#include "hwxkit/ChildReading.h"
#include "hwxkit/IContainerSource.h"
#include "hwxkit/INamespaceSource.h"
#include "hwxkit/NamespaceCopy.h"
#include "hwxkit/QualifierFlags.h"
#include "hwxkit/StandardQualifiers.h"
#include "hwxkit/TChildLimits.h"
#include "hwxkit/TChildLostException.h"
#include "hwxkit/TClassBuilder.h"
#include "hwxkit/TContainerException.h"
#include "hwxkit/TElementNotes.h"
#include "hwxkit/TInstanceList.h"
#include "hwxkit/TMemoryClass.h"
#include "hwxkit/TMemoryInstance.h"
#include "hwxkit/TMemoryMethodDecl.h"
#include "hwxkit/TMemoryNamespace.h"
#include "hwxkit/TMemoryParameterDecl.h"
#include "hwxkit/TMemoryProperty.h"
#include "hwxkit/TMemoryPropertyDecl.h"
#include "hwxkit/TMemoryProvider.h"
#include "hwxkit/TMemoryQualifiedElement.h"
#include "hwxkit/TMemoryQualifier.h"
#include "hwxkit/TMemoryQualifierDecl.h"
#include "hwxkit/TNameTable.h"
#include "hwxkit/TProviderRegistration.h"
#include "hwxkit/TQualifierTable.h"

#endif  // HWXKIT_HWXKIT_H
