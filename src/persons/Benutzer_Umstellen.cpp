#include "Benutzer_Umstellen.h"

#include "Umstellung.h"
#include "UserRecords.h"

#include <array>

namespace qvm {

namespace {

constexpr int Records = 251;

/// The first step's target: the name of the middle form's file, but the record of the present one.
constexpr RecordLayout Zwischenform{"UserRecord", UserRecordV2::Record.File, UserRecord::Record.Length, 1,
                                    Records,      UserRecord::Fields};

constexpr std::array CopiesV1{
    FieldCopy{UserRecordV1::UserName, UserRecord::UserName}, FieldCopy{UserRecordV1::UserRight, UserRecord::UserRight},
    FieldCopy{UserRecordV1::UserCode, UserRecord::UserCode}, FieldCopy{UserRecordV1::KeyLabel, UserRecord::KeyLabel},
    FieldCopy{UserRecordV1::KeyId, UserRecord::KeyId},       FieldCopy{UserRecordV1::KeyData, UserRecord::KeyData},
    FieldCopy{UserRecordV1::LockMask, UserRecord::LockMask}};

constexpr std::array CopiesV2{FieldCopy{UserRecordV2::UserName, UserRecord::UserName},
                              FieldCopy{UserRecordV2::UserGroupId, UserRecord::UserGroupId},
                              FieldCopy{UserRecordV2::UserRight, UserRecord::UserRight},
                              FieldCopy{UserRecordV2::UserCode, UserRecord::UserCode},
                              FieldCopy{UserRecordV2::KeyLabel, UserRecord::KeyLabel},
                              FieldCopy{UserRecordV2::KeyId, UserRecord::KeyId},
                              FieldCopy{UserRecordV2::KeyData, UserRecord::KeyData},
                              FieldCopy{UserRecordV2::LockMask, UserRecord::LockMask}};

} // namespace

bool Benutzer_Umstellen(Kern& kern) {
    return Datei_Umstellen(kern, {UserRecordV1::Record, Zwischenform, Records, CopiesV1, " / Stp_01"}) &&
           Datei_Umstellen(kern, {UserRecordV2::Record, UserRecord::Record, Records, CopiesV2, " / Stp_02"});
}

} // namespace qvm
