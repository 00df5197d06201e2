#pragma once

#include "Record.h"

#include <array>

/// Records of the user table. Record number = user number, 1 to 250.
namespace qvm {

/// A user: name, timer group identifier, right, code, credentials, one mark for every lock.
namespace UserRecord {
inline constexpr RecordField UserName{"UserName", 0, 16, Fill::Null}, UserGroupId{"UserGroupId", 16, 15},
    UserRight{"UserRight", 31, 4}, UserCode{"UserCode", 35, 10}, KeyLabel{"KeyLabel", 45, 16, Fill::Null},
    KeyId{"KeyId", 61, 41, Fill::Null}, KeyData{"KeyData", 102, 93, Fill::Null}, FingerFlag{"FingerFlag", 195, 2},
    FingerId{"FingerId", 197, 21, Fill::NullTo20}, LockMask{"LockMask", 218, 201, Fill::Blank, "XF-"};
inline constexpr std::array Fields{UserName, UserGroupId, UserRight,  UserCode, KeyLabel,
                                   KeyId,    KeyData,     FingerFlag, FingerId, LockMask};
inline constexpr RecordLayout Record{"UserRecord", "BX10X52WUJ9.UBW", 419, 1, 250, Fields, 250};
static_assert(sizeof(GapAtField<RecordError(Fields, 419)>) == 1);
} // namespace UserRecord

/// The oldest form; the one-character field is dropped.
namespace UserRecordV1 {
inline constexpr RecordField UserName{"UserName", 0, 16}, Dropped{"Dropped", 16, 1}, UserRight{"UserRight", 17, 4},
    UserCode{"UserCode", 21, 10}, KeyLabel{"KeyLabel", 31, 16}, KeyId{"KeyId", 47, 21}, KeyData{"KeyData", 68, 93},
    LockMask{"LockMask", 161, 101};
inline constexpr std::array Fields{UserName, Dropped, UserRight, UserCode, KeyLabel, KeyId, KeyData, LockMask};
inline constexpr RecordLayout Record{"UserRecordV1", "BX10Y48WUI8.UBW", 262, 1, 251, Fields};
static_assert(sizeof(GapAtField<RecordError(Fields, 262)>) == 1);
} // namespace UserRecordV1

/// The form before the present one.
namespace UserRecordV2 {
inline constexpr RecordField UserName{"UserName", 0, 16}, UserGroupId{"UserGroupId", 16, 15},
    UserRight{"UserRight", 31, 4}, UserCode{"UserCode", 35, 10}, KeyLabel{"KeyLabel", 45, 16}, KeyId{"KeyId", 61, 21},
    KeyData{"KeyData", 82, 93}, LockMask{"LockMask", 175, 101};
inline constexpr std::array Fields{UserName, UserGroupId, UserRight, UserCode, KeyLabel, KeyId, KeyData, LockMask};
inline constexpr RecordLayout Record{"UserRecordV2", "BX08HAZJNT9.UBW", 276, 1, 251, Fields};
static_assert(sizeof(GapAtField<RecordError(Fields, 276)>) == 1);
} // namespace UserRecordV2

/// Radio channels of lock r and of the E-Key of user r. A blank channel means 1.
namespace ChannelRecord {
inline constexpr RecordField LockChannel{"LockChannel", 0, 3}, EKold{"EKold", 3, 3},
    TargetChannel{"TargetChannel", 6, 3}, LockChange{"LockChange", 9, 3}, Ekeychange{"Ekeychange", 12, 3};
inline constexpr std::array Fields{LockChannel, EKold, TargetChannel, LockChange, Ekeychange};
inline constexpr RecordLayout Record{"ChannelRecord", "RFCHANDIF12.RFX", 15, 1, 250, Fields};
static_assert(sizeof(GapAtField<RecordError(Fields, 15)>) == 1);
} // namespace ChannelRecord

/// Fingerprint templates: a sparse store, scanned by identifier.
namespace TemplateRecord {
inline constexpr RecordField Owner{"Owner", 0, 5}, Identifier{"Identifier", 5, 21}, Template{"Template", 26, 3000},
    Spare{"Spare", 3026, 2};
inline constexpr std::array Fields{Owner, Identifier, Template, Spare};
inline constexpr RecordLayout Record{"TemplateRecord", "TEmpTCD0UPK.FSD", 3028, 1, 501, Fields};
static_assert(sizeof(GapAtField<RecordError(Fields, 3028)>) == 1);
} // namespace TemplateRecord

} // namespace qvm
