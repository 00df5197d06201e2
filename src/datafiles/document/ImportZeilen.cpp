#include "ImportZeilen.h"

#include "Text.h"

#include <nlohmann/json.hpp>
#include <utility>

namespace qvm {

namespace {

/// Why a line cannot be one; empty when all is well.
std::string Zeilenfehler(const nlohmann::json& value) {
    if (!value.is_string()) {
        return std::string("must be a text, not a ") + value.type_name();
    }
    const auto& utf8 = value.get_ref<const std::string&>();
    if (!PasstInCp1252(utf8)) {
        return "holds a character that code page 1252 does not have";
    }
    if (utf8.find_first_of("\r\n") != std::string::npos) {
        return "holds a line end";
    }
    return utf8.find('\0') == std::string::npos ? "" : "holds a zero character, behind which nobody reads";
}

} // namespace

void ImportZeilen::Zeile(const nlohmann::json& value) {
    ++count_;
    if (count_ > static_cast<std::size_t>(entry_->Lines)) {
        return;
    }
    std::string fault = Zeilenfehler(value);
    if (fault.empty()) {
        bytes_ += AusUtf8(value.get_ref<const std::string&>()) + "\r\n";
    } else {
        good_ = false;
        faults_->Add(entry_->File, static_cast<int>(count_), "", [&fault] { return std::move(fault); });
    }
}

void ImportZeilen::Beenden() {
    if (count_ > static_cast<std::size_t>(entry_->Lines)) {
        faults_->Add(entry_->File, 0, "", [this] {
            return "has " + std::to_string(count_) + " lines, " + std::to_string(entry_->Lines) + " are read";
        });
        return;
    }
    const FileTrouble trouble = good_ ? Zeilendatei_Pruefen(*entry_, bytes_) : FileTrouble{};
    if (trouble.Damage != FileDamage::None) {
        faults_->Add(entry_->File, trouble.Number, "", [&trouble] {
            return trouble.Damage == FileDamage::BadLine ? "holds what the program takes for damage"
                                                         : "lines are missing";
        });
    }
}

} // namespace qvm
