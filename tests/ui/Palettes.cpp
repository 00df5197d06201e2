#include "Palettes.h"

#include <QApplication>
#include <QStyle>

#include <span>

namespace qvm::test {
namespace {

struct RoleRow {
    QPalette::ColorRole Role;
    QRgb Active;
    QRgb Disabled;
};

QPalette paletteOf(std::span<const RoleRow> rows) {
    QPalette palette;
    for (const RoleRow& row : rows) {
        palette.setColor(QPalette::Active, row.Role, QColor::fromRgba(row.Active));
        palette.setColor(QPalette::Inactive, row.Role, QColor::fromRgba(row.Active));
        palette.setColor(QPalette::Disabled, row.Role, QColor::fromRgba(row.Disabled));
    }
    return palette;
}

// Plasma makes the colours of disabled controls from the others: 65 % of the ground in the text, and a tenth darker.

constexpr RoleRow BreezeLight[] = {
    {QPalette::Window, 0xFFEFF0F1, 0xFFD7D8D9},      {QPalette::WindowText, 0xFF31363B, 0xFFA2A4A6},
    {QPalette::Base, 0xFFFCFCFC, 0xFFE3E3E3},        {QPalette::AlternateBase, 0xFFF8F7F6, 0xFFDFDEDD},
    {QPalette::Text, 0xFF31363B, 0xFFAAACAD},        {QPalette::PlaceholderText, 0xFF888786, 0xFFBDBDBC},
    {QPalette::Button, 0xFFEFF0F1, 0xFFD7D8D9},      {QPalette::ButtonText, 0xFF31363B, 0xFFA2A4A6},
    {QPalette::BrightText, 0xFFFFFFFF, 0xFFFFFFFF},  {QPalette::Light, 0xFFFFFFFF, 0xFFFFFFFF},
    {QPalette::Midlight, 0xFFF6F7F7, 0xFFEBECED},    {QPalette::Mid, 0xFFC4C8CC, 0xFFB0B4B8},
    {QPalette::Dark, 0xFF888E93, 0xFF7A8084},        {QPalette::Shadow, 0xFF474A4C, 0xFF404245},
    {QPalette::Highlight, 0xFF3DAEE9, 0xFFD7D8D9},   {QPalette::HighlightedText, 0xFFFCFCFC, 0xFFA2A4A6},
    {QPalette::Link, 0xFF0057AE, 0xFFA3B6C8},        {QPalette::LinkVisited, 0xFF452886, 0xFFAEA7BD},
    {QPalette::ToolTipBase, 0xFFFCFCFC, 0xFFFCFCFC}, {QPalette::ToolTipText, 0xFF31363B, 0xFF31363B}};

constexpr RoleRow BreezeDark[] = {
    {QPalette::Window, 0xFF2A2E32, 0xFF26292D},      {QPalette::WindowText, 0xFFFCFCFC, 0xFF686A6D},
    {QPalette::Base, 0xFF1B1E20, 0xFF181B1D},        {QPalette::AlternateBase, 0xFF232629, 0xFF1F2225},
    {QPalette::Text, 0xFFFCFCFC, 0xFF5F6162},        {QPalette::PlaceholderText, 0xFFA1A9B1, 0xFF424649},
    {QPalette::Button, 0xFF31363B, 0xFF2C3135},      {QPalette::ButtonText, 0xFFFCFCFC, 0xFF6C6F72},
    {QPalette::BrightText, 0xFFFFFFFF, 0xFFFFFFFF},  {QPalette::Light, 0xFF40464C, 0xFF3A4045},
    {QPalette::Midlight, 0xFF363B40, 0xFF31363A},    {QPalette::Mid, 0xFF202427, 0xFF1D2023},
    {QPalette::Dark, 0xFF141618, 0xFF121416},        {QPalette::Shadow, 0xFF0F1012, 0xFF0D0F10},
    {QPalette::Highlight, 0xFF3DAEE9, 0xFF26292D},   {QPalette::HighlightedText, 0xFFFCFCFC, 0xFF686A6D},
    {QPalette::Link, 0xFF1D99F3, 0xFF1A425F},        {QPalette::LinkVisited, 0xFF9B59B6, 0xFF42304B},
    {QPalette::ToolTipBase, 0xFF31363B, 0xFF31363B}, {QPalette::ToolTipText, 0xFFFCFCFC, 0xFFFCFCFC}};

// The colour of place holders is left to Qt here, which derives it from a black text.
constexpr RoleRow AdwaitaDark[] = {
    {QPalette::Window, 0xFF353535, 0xFF323232},      {QPalette::WindowText, 0xFFEEEEEC, 0xFF919190},
    {QPalette::Base, 0xFF2D2D2D, 0xFF323232},        {QPalette::AlternateBase, 0xFF303030, 0xFF323232},
    {QPalette::Text, 0xFFFFFFFF, 0xFF919190},        {QPalette::PlaceholderText, 0x80000000, 0x80000000},
    {QPalette::Button, 0xFF373737, 0xFF323232},      {QPalette::ButtonText, 0xFFEEEEEC, 0xFF919190},
    {QPalette::BrightText, 0xFFFFFFFF, 0xFFFFFFFF},  {QPalette::Light, 0xFF4A4A4A, 0xFF464646},
    {QPalette::Midlight, 0xFF404040, 0xFF3C3C3C},    {QPalette::Mid, 0xFF282828, 0xFF262626},
    {QPalette::Dark, 0xFF1B1B1B, 0xFF202020},        {QPalette::Shadow, 0xFF070707, 0xFF070707},
    {QPalette::Highlight, 0xFF15539E, 0xFF15539E},   {QPalette::HighlightedText, 0xFFFFFFFF, 0xFF919190},
    {QPalette::Link, 0xFF3584E4, 0xFF5B5B5B},        {QPalette::LinkVisited, 0xFF1B6ACB, 0xFF5B5B5B},
    {QPalette::ToolTipBase, 0xFF262626, 0xFF262626}, {QPalette::ToolTipText, 0xFFEEEEEC, 0xFFEEEEEC}};

constexpr RoleRow HighContrast[] = {
    {QPalette::Window, 0xFF31363B, 0xFF2C3135},      {QPalette::WindowText, 0xFFFCFCFC, 0xFF6C6F72},
    {QPalette::Base, 0xFF232629, 0xFF1F2225},        {QPalette::AlternateBase, 0xFF292C30, 0xFF25282B},
    {QPalette::Text, 0xFFFCFCFC, 0xFF646567},        {QPalette::PlaceholderText, 0xFF7F8C8D, 0xFF3C4244},
    {QPalette::Button, 0xFF4D4D4D, 0xFF454545},      {QPalette::ButtonText, 0xFFFCFCFC, 0xFF7C7C7C},
    {QPalette::BrightText, 0xFFFFFFFF, 0xFFFFFFFF},  {QPalette::Light, 0xFF5E676F, 0xFF555D64},
    {QPalette::Midlight, 0xFF454C53, 0xFF3E444B},    {QPalette::Mid, 0xFF212528, 0xFF1E2124},
    {QPalette::Dark, 0xFF0F1012, 0xFF0D0F10},        {QPalette::Shadow, 0xFF08090A, 0xFF070809},
    {QPalette::Highlight, 0xFF34495E, 0xFF2C3135},   {QPalette::HighlightedText, 0xFFEFF0F1, 0xFF6C6F72},
    {QPalette::Link, 0xFF2980B9, 0xFF223F52},        {QPalette::LinkVisited, 0xFF7F8C8D, 0xFF3C4244},
    {QPalette::ToolTipBase, 0xFF1D99F3, 0xFF1D99F3}, {QPalette::ToolTipText, 0xFFFCFCFC, 0xFFFCFCFC}};

} // namespace

const std::vector<DesktopPalette>& desktopPalettes() {
    static const std::vector<DesktopPalette> all{{"breeze-light", paletteOf(BreezeLight)},
                                                 {"breeze-dark", paletteOf(BreezeDark)},
                                                 {"adwaita-dark", paletteOf(AdwaitaDark)},
                                                 {"high-contrast", paletteOf(HighContrast)}};
    return all;
}

bool dressProgram(const QString& name) {
    for (const DesktopPalette& desktop : desktopPalettes()) {
        if (QString::fromStdString(desktop.Name) == name) {
            QPalette palette = desktop.Colours;
            QApplication::style()->polish(palette);
            QApplication::setPalette(palette);
            return true;
        }
    }
    return false;
}

} // namespace qvm::test
