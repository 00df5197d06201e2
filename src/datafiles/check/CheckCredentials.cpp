#include "CheckStand.h"
#include "Text.h"
#include "UserRecords.h"

#include <set>

namespace qvm {

namespace {

const RecordLayout& Holders = UserRecord::Record;
const RecordLayout& Templates = TemplateRecord::Record;

/// The decimal values 0 to 255 of a text "d : d : d"; nothing when it holds anything else. A separator at the end is
/// allowed, as templates have one.
std::optional<std::vector<int>> Bytewerte(std::string_view text) {
    std::vector<int> values;
    while (!Trim(text).empty()) {
        const std::size_t end = text.find(':');
        const std::optional<int> value = Dezimalzahl(Trim(text.substr(0, end)));
        if (!value || *value > 255) {
            return std::nullopt;
        }
        values.push_back(*value);
        text = end == std::string_view::npos ? std::string_view() : text.substr(end + 1);
    }
    return values;
}

/// "#", a slot number, "-ID#" and the values, the last of which may have been cut by the field's width.
bool Transponder_Form(std::string_view text) {
    const std::size_t mark = text.find("-ID#");
    if (mark == std::string_view::npos || mark < 2 || mark > 4 || !Dezimalzahl(text.substr(1, mark - 1))) {
        return false;
    }
    const auto values = Bytewerte(text.substr(mark + 4));
    return values && !values->empty() && values->size() <= 11;
}

void Schluessel_Pruefen(CheckStand& stand, int user) {
    const std::string id = stand.Text(Holders, user, UserRecord::KeyId);
    if (id.empty()) {
        return;
    }
    const auto values = Bytewerte(id);
    if (id[0] == '#' ? !Transponder_Form(id) : !values || values->size() != 4) {
        stand.Melden(FindingKind::Range, Holders, user, UserRecord::KeyId.Name,
                     "is neither the identification of an E-Key nor of a transponder");
    }
    const std::string data = stand.Text(Holders, user, UserRecord::KeyData);
    const auto dataValues = Bytewerte(data);
    if (!data.empty() && (!dataValues || dataValues->size() != 16)) {
        stand.Melden(FindingKind::Range, Holders, user, UserRecord::KeyData.Name, "does not hold sixteen bytes");
    }
}

/// The leading digits of an identifier; the mark of a premium finger is dropped first.
std::string Kennziffern(std::string_view identifier) {
    if (identifier.starts_with("PR")) {
        identifier.remove_prefix(2);
    }
    return std::string(identifier.substr(0, identifier.find_first_not_of("0123456789")));
}

std::set<std::string> Vorlagen_Kennziffern(const CheckStand& stand) {
    std::set<std::string> known;
    for (int record = 1; record <= stand.Letzter(Templates); ++record) {
        known.insert(Kennziffern(stand.Text(Templates, record, TemplateRecord::Identifier)));
    }
    known.erase("");
    return known;
}

void Finger_Pruefen(CheckStand& stand, int user, const std::set<std::string>& templates, DoubledTexts& slots) {
    const std::string flag = stand.Text(Holders, user, UserRecord::FingerFlag);
    if (!Leer_Oder(flag, {"FS", "NO", "--"})) {
        stand.Melden(FindingKind::Range, Holders, user, UserRecord::FingerFlag.Name,
                     "there is no state " + Zitat(flag));
    }
    const std::string label = stand.Text(Holders, user, UserRecord::KeyLabel);
    const std::string slot = label.starts_with("Slot_Nr:") ? std::string(Trim(Mid(label, 10, 3))) : "";
    if (const auto first = slots.Sehen(slot, user)) {
        stand.Melden(FindingKind::Doubled, Holders, user, UserRecord::KeyLabel.Name,
                     "finger slot " + Zitat(slot) + " belongs to user " + std::to_string(*first) + ", too");
    }
    if (flag != "FS") {
        return;
    }
    const std::string digits = Kennziffern(stand.Text(Holders, user, UserRecord::FingerId));
    if (digits.empty()) {
        stand.Melden(FindingKind::Dangling, Holders, user, UserRecord::FingerId.Name,
                     "a finger is in use, but names no template");
    } else if (!templates.contains(digits)) {
        stand.Melden(FindingKind::Dangling, Holders, user, UserRecord::FingerId.Name,
                     "the finger's template is missing");
    }
    if (Dezimalzahl(slot).value_or(0) < 1) {
        stand.Melden(FindingKind::Range, Holders, user, UserRecord::KeyLabel.Name, "does not name the finger's slot");
    }
}

} // namespace

void Benutzer_Credentials_Pruefen(CheckStand& stand) {
    const std::set<std::string> templates = Vorlagen_Kennziffern(stand);
    DoubledTexts keys, slots, fingers;
    for (int user = 1; user <= stand.Letzter(Holders); ++user) {
        if (stand.Text(Holders, user, UserRecord::UserName).empty()) {
            continue;
        }
        Schluessel_Pruefen(stand, user);
        if (const auto first = keys.Sehen(stand.Text(Holders, user, UserRecord::KeyId), user)) {
            stand.Melden(FindingKind::Doubled, Holders, user, UserRecord::KeyId.Name,
                         "the same key belongs to user " + std::to_string(*first));
        }
        const std::string finger = Kennziffern(stand.Text(Holders, user, UserRecord::FingerId));
        if (const auto first = fingers.Sehen(finger, user)) {
            stand.Melden(FindingKind::Doubled, Holders, user, UserRecord::FingerId.Name,
                         "the same finger belongs to user " + std::to_string(*first));
        }
        Finger_Pruefen(stand, user, templates, slots);
    }
}

void Vorlagen_Pruefen(CheckStand& stand) {
    DoubledTexts seen;
    for (int record = 1; record <= stand.Letzter(Templates); ++record) {
        const std::string identifier = stand.Text(Templates, record, TemplateRecord::Identifier);
        // Empty room of the store, or a deletion record.
        if (identifier.empty() || identifier.starts_with("F-")) {
            continue;
        }
        const std::string digits = Kennziffern(identifier);
        if (digits.empty()) {
            stand.Melden(FindingKind::Range, Templates, record, TemplateRecord::Identifier.Name,
                         Zitat(identifier) + " does not begin with digits, so no user finds it");
        }
        if (const auto first = seen.Sehen(digits, record)) {
            stand.Melden(FindingKind::Doubled, Templates, record, TemplateRecord::Identifier.Name,
                         Zitat(digits) + " stands in record " + std::to_string(*first) + ", too");
        }
        const auto values = Bytewerte(stand.Text(Templates, record, TemplateRecord::Template));
        if (!values || values->size() < 2) {
            stand.Melden(FindingKind::Damaged, Templates, record, TemplateRecord::Template.Name,
                         "is not a list of bytes");
        } else if (const int length = (*values)[0] + 256 * (*values)[1];
                   length < 2 || static_cast<std::size_t>(length) > values->size()) {
            stand.Melden(FindingKind::Damaged, Templates, record, TemplateRecord::Template.Name,
                         "tells a length of " + std::to_string(length) + " and holds " +
                             std::to_string(values->size()) + " bytes");
        }
    }
}

void Kanaele_Pruefen(CheckStand& stand) {
    const RecordLayout& channels = ChannelRecord::Record;
    for (int record = 1; record <= stand.Letzter(channels); ++record) {
        for (const RecordField* field :
             {&ChannelRecord::LockChannel, &ChannelRecord::EKold, &ChannelRecord::TargetChannel}) {
            const std::string text = stand.Text(channels, record, *field);
            const int channel = Dezimalzahl(text).value_or(0);
            if (!text.empty() && (channel < 1 || channel > 12)) {
                stand.Melden(FindingKind::Range, channels, record, field->Name,
                             Zitat(text) + " is not a channel from 1 to 12");
            }
        }
        for (const RecordField* field : {&ChannelRecord::LockChange, &ChannelRecord::Ekeychange}) {
            const std::string text = stand.Text(channels, record, *field);
            if (!Leer_Oder(text, {"0", "1"})) {
                stand.Melden(FindingKind::Range, channels, record, field->Name, Zitat(text) + " is neither 0 nor 1");
            }
        }
    }
}

} // namespace qvm
