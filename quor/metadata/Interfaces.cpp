// The interfaces' destructors, here so that each interface has one home for its type information.

#include "quor/metadata/IAliasesMD.h"
#include "quor/metadata/ICustomReadTermination.h"
#include "quor/metadata/IKeywordAssignmentMD.h"
#include "quor/metadata/IKeywordBooleanMD.h"
#include "quor/metadata/IKeywordChoiceMD.h"
#include "quor/metadata/IKeywordDataMD.h"
#include "quor/metadata/IKeywordDataMDInternal.h"
#include "quor/metadata/IKeywordIntegerMD.h"
#include "quor/metadata/IKeywordItemMD.h"
#include "quor/metadata/IKeywordLineMD.h"
#include "quor/metadata/IKeywordListMD.h"
#include "quor/metadata/IKeywordMapMD.h"
#include "quor/metadata/IKeywordNumericMD.h"
#include "quor/metadata/IKeywordRawMD.h"
#include "quor/metadata/IKeywordRealMD.h"
#include "quor/metadata/IKeywordRecordMD.h"
#include "quor/metadata/IKeywordStringMD.h"
#include "quor/metadata/ISkippableInfo.h"
#include "quor/metadata/IUnsupportedByMD.h"
#include "quor/metadata/IValidityMD.h"

namespace Veld::Quor::Core::Keywords {

IKeywordDataMD::~IKeywordDataMD() = default;
IKeywordItemMD::~IKeywordItemMD() = default;
IKeywordNumericMD::~IKeywordNumericMD() = default;
IKeywordRealMD::~IKeywordRealMD() = default;
IKeywordIntegerMD::~IKeywordIntegerMD() = default;
IKeywordBooleanMD::~IKeywordBooleanMD() = default;
IKeywordChoiceMD::~IKeywordChoiceMD() = default;
IKeywordStringMD::~IKeywordStringMD() = default;
IKeywordLineMD::~IKeywordLineMD() = default;
IKeywordAssignmentMD::~IKeywordAssignmentMD() = default;
IKeywordRecordMD::~IKeywordRecordMD() = default;
IKeywordListMD::~IKeywordListMD() = default;
IKeywordMapMD::~IKeywordMapMD() = default;
IKeywordRawMD::~IKeywordRawMD() = default;
IKeywordDataMDInternal::~IKeywordDataMDInternal() = default;
IValidityMD::~IValidityMD() = default;
IUnsupportedByMD::~IUnsupportedByMD() = default;
IAliasesMD::~IAliasesMD() = default;
ISkippableInfo::~ISkippableInfo() = default;
ICustomReadTermination::~ICustomReadTermination() = default;

} // namespace Veld::Quor::Core::Keywords
