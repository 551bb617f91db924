#include <analytics/ProfileDoc.h>

#include "document/DocumentImpl.h"

namespace analytics {

ProfileDoc::ProfileDoc() = default;

ProfileDoc::~ProfileDoc() = default;

bool ProfileDoc::CreateSearchContext() { return m_impl->CreateXPathContext(true); }

}  // namespace analytics
