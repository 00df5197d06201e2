#pragma once

#include "Check.h"
#include "ConsoleFiles.h"
#include "Tables.h"

#include <gtest/gtest.h>

namespace qvm::test {

/// A small installation in which all is well: two users, two locks, one finger, one group of each kind.
inline constexpr std::string_view Clean = R"({"format":"qvm7702-export","version":1,"tables":{
"UserRecord":[
 {"record":1,"UserName":"Anna","UserGroupId":"PB_500","UserRight":"1","UserCode":"111222","KeyLabel":"Ring",
  "KeyId":"1 : 2 : 3 : 4","KeyData":"0 : 1 : 2 : 3 : 4 : 5 : 6 : 7 : 8 : 9 : 10 : 11 : 12 : 13 : 14 : 255",
  "FingerFlag":"--","LockMask":"XX"},
 {"record":2,"UserName":"Bert","UserGroupId":"PB_2008TimA","UserRight":"FS+","UserCode":"333444",
  "KeyLabel":"Slot_Nr: 001","FingerFlag":"FS","FingerId":"PR800","LockMask":"F-"}],
"TemplateRecord":[{"record":250,"Owner":"3","Identifier":"800","Template":"4 : 0 : 9 : 9 :","Spare":"0"}],
"ChannelRecord":[{"record":1,"LockChannel":"5","EKold":"12","TargetChannel":"5","LockChange":"0","Ekeychange":"1"}],
"LockRecord":[
 {"record":1,"Name":"Tor","OffsetId":"OFST0x01","Sn1":"00","Sn2":"0A","Sn3":"10","Sn4":"01","Switch1":"X"},
 {"record":2,"Name":"Tresor","Sn1":"01","Sn2":"1A","Sn3":"20","Sn4":"05"}],
"LockPrioRecord":[{"record":1,"Prio":"3","Spare1":"3","Spare2":"3","Spare3":"3"}],
"LockEmiRecord":[{"record":1,"Emi":"X"}],
"LockGroupRecord":[{"record":1,"GroupId":"PB_600","GroupName":"Nacht"},{"record":2,"GroupId":"-","GroupName":"-"}],
"LockAdapterRecord":[{"record":1,"AdapterId":"/1/2/3/4","AdapterName":"PROGSTATION-1","Sn1":"00","Sn2":"0A","Sn3":"10","Sn4":"01"}],
"DoorModeRecord":[{"record":1,"Mode":"AA","Sn1":"00","Sn2":"0A","Sn3":"10","Sn4":"01","Days":"9500"}],
"WirelessUnitRecord":[{"record":1,"UnitMode":"3","AlwaysOn":"0","Reserved1":"0","ScanSignal":"00","Hours":"1",
 "Minutes":"0","Seconds":"0","SignalFlag":"0","RssiLevel":"000","Name1":"Leser","Sn1_1":"01","Sn2_1":"60",
 "Sn3_1":"00","Sn4_1":"01","Module1":"1","UnitNo1":"1"}],
"TimeSlot":[{"record":1,"DayIndex":10,"From":"08:00","To":"17:00"}],
"TimeGroup":[{"record":3,"Num":"3","Name":"Tag","Days":"X---------","Count":"1","PbId":"PB_500"}],
"LockTimeGroup":[{"record":1,"Num":"1","Name":"Nacht","Days":"XX---","Count":"2","PbId":"PB_600"}],
"CalendarEntry":[{"record":1,"DateFrom":"24.12.2026","DateTo":"26.12.2026","Kind":"1"},
 {"record":22,"DateFrom":"29.02. - -","DateTo":"01.03. - -"}],
"GuestOffset":[{"record":1,"Name":"Spät","Time":"01:00","Base":"09:30","OffsetId":"OFST0x01"}],
"AdapterRecord":[{"record":1,"Adresse":"/1/2/3/4","Name":"PROGSTATION-1","Port":"3"}]},
"lines":{"EST7CSB29A.I_1":["Deutsch","1","USB-Port3","5"],"CHEUSB25C.I_2":["SET       "],
"OFSTSETUPDT.FST":["05.03.2026","09:30","15:00","00","01"],
"ASWTIMQVMLCK.FSN":["05.03.2026","HOTEL","X","0","0","0","0","0","0","0","ENDE"],
"ObJNR09DAT.OBN":["05.03.2026","254","255"],"PERMSELECT.RFS":["05.03.2026","00.0A.10.01","ENDE"]}})";

class Daten_Pruefen_ : public testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(Import(Disk, Clean).Done); }

    /// Every finding, one a line, its kind first.
    std::string Findings() {
        std::string text;
        for (const Finding& finding : Daten_Pruefen(Disk.Store(), Dat)) {
            text += std::string(finding.Kind) + " " + Befund_Text(finding) + "\n";
        }
        return text;
    }
    /// Overwrites bytes; a file that is too short grows by blank records.
    void Write(std::string_view file, std::size_t offset, std::string_view text) {
        std::string& bytes = Disk.Files[Dat + std::string(file)];
        while (bytes.size() < offset + text.size()) {
            bytes += std::string(Length(file), ' ');
        }
        bytes.replace(offset, text.size(), text);
    }
    static std::size_t Length(std::string_view file) {
        for (const RecordLayout* layout : Satztabellen()) {
            if (layout->File == file) {
                return layout->Length;
            }
        }
        return 1;
    }
    void Lines(std::string_view file, std::string_view text) { Disk.Files[Dat + std::string(file)] = text; }

    MemoryFiles Disk;
};

} // namespace qvm::test
