// The exported table of Java class names and method signatures.
#include "bridge/bridge.h"

const int TABLE_SIZE = 500;

const char* const CNAME_OUTLINE_TYPE = "com/olvane/kep/olvane/defs/outline/OutlineType";
const char* const CNAME_ALIAS_TABLE = "com/olvane/kep/olvane/defs/outline/AliasTable";
const char* const CNAME_LONGNAME_CONSTRUCTOR =
    "com/olvane/kep/olvane/defs/outline/LongNameConstructor";
const char* const CNAME_LONGNAME_SOURCE = "com/olvane/kep/olvane/defs/outline/LongNameSource";
const char* const CNAME_LONGNAME_DELIMITER = "com/olvane/kep/olvane/defs/outline/LongNameDelimiter";
const char* const CNAME_ATTRDATE_FORMAT = "com/olvane/kep/olvane/defs/outline/AttributeDateFormat";
const char* const CNAME_BUCKETING = "com/olvane/kep/olvane/defs/outline/BucketingType";
const char* const CNAME_DEFAULT_MEMBER = "com/olvane/kep/olvane/defs/outline/DefaultMember";
const char* const CNAME_CONSOLIDATION = "com/olvane/kep/olvane/defs/outline/Consolidation";
const char* const CNAME_CONVERSION = "com/olvane/kep/olvane/defs/outline/CurrencyConversion";
const char* const CNAME_TIME_BALANCE = "com/olvane/kep/olvane/defs/outline/TimeBalance";
const char* const CNAME_TIME_BALANCE_SKIP = "com/olvane/kep/olvane/defs/outline/TimeBalanceSkip";
const char* const CNAME_SHARE = "com/olvane/kep/olvane/defs/outline/Share";
const char* const CNAME_DIM_STORAGE_TYPE =
    "com/olvane/kep/olvane/defs/outline/DimensionStorageType";
const char* const CNAME_DIM_CATEGORY = "com/olvane/kep/olvane/defs/outline/DimensionCategory";
const char* const CNAME_ATTRIBUTE_TYPE = "com/olvane/kep/olvane/defs/outline/AttributeType";
const char* const CNAME_GLOBAL_ERROR = "com/olvane/kep/olvane/defs/outline/GlobalVerifyError";
const char* const CNAME_MEMBER_ERROR = "com/olvane/kep/olvane/defs/outline/MemberVerifyError";
const char* const CNAME_MEMBER_FORMULA = "com/olvane/kep/olvane/defs/outline/Formula";
const char* const CNAME_MEMBER_ATTRIBUTE = "com/olvane/kep/olvane/defs/outline/MemberAttribute";
const char* const CNAME_MEMBER_ALIAS = "com/olvane/kep/olvane/defs/outline/MemberAlias";
const char* const CNAME_GENERATION = "com/olvane/kep/olvane/defs/DefinedGeneration";
const char* const CNAME_LEVEL = "com/olvane/kep/olvane/defs/DefinedLevel";
const char* const CNAME_DTS = "com/olvane/kep/olvane/defs/outline/DynamicTimeSeries";
const char* const CNAME_MEMBER_PATH = "com/olvane/kep/olvane/defs/outline/MemberPath";
const char* const CNAME_MEMBER_RESULT = "com/olvane/kep/olvane/defs/outline/MemberRequestResult";
const char* const MNAME_CONSTRUCTOR = "<init>";
const char* const PTYPE_CONSTRUCTOR = "()V";
const char* const PTYPE_LONGNAME_CONSTRUCTOR =
    "(Lcom/olvane/kep/olvane/defs/outline/LongNameConstructor;)V";
const char* const PTYPE_LONGNAME_SOURCE = "(Lcom/olvane/kep/olvane/defs/outline/LongNameSource;)V";
const char* const PTYPE_LONGNAME_DELIMITER =
    "(Lcom/olvane/kep/olvane/defs/outline/LongNameDelimiter;)V";
const char* const PTYPE_ATTRDATE_FORMAT =
    "(Lcom/olvane/kep/olvane/defs/outline/AttributeDateFormat;)V";
const char* const PTYPE_BUCKETING = "(Lcom/olvane/kep/olvane/defs/outline/BucketingType;)V";
const char* const PTYPE_CONSOLIDATION = "(Lcom/olvane/kep/olvane/defs/outline/Consolidation;)V";
const char* const PTYPE_CONVERSION = "(Lcom/olvane/kep/olvane/defs/outline/CurrencyConversion;)V";
const char* const PTYPE_TIME_BALANCE = "(Lcom/olvane/kep/olvane/defs/outline/TimeBalance;)V";
const char* const PTYPE_TIME_BALANCE_SKIP =
    "(Lcom/olvane/kep/olvane/defs/outline/TimeBalanceSkip;)V";
const char* const PTYPE_SHARE = "(Lcom/olvane/kep/olvane/defs/outline/Share;)V";
const char* const PTYPE_DIM_STORAGE_TYPE =
    "(Lcom/olvane/kep/olvane/defs/outline/DimensionStorageType;)V";
const char* const PTYPE_DIM_CATEGORY = "(Lcom/olvane/kep/olvane/defs/outline/DimensionCategory;)V";
const char* const PTYPE_ATTRIBUTE_TYPE = "(Lcom/olvane/kep/olvane/defs/outline/AttributeType;)V";
const char* const PTYPE_GLOBAL_ERROR = "(Lcom/olvane/kep/olvane/defs/outline/GlobalVerifyError;)V";
const char* const PTYPE_MEMBER_ERROR = "(Lcom/olvane/kep/olvane/defs/outline/MemberVerifyError;)V";
