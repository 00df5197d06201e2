#include "UiFixture.h"

#include "GridView.h"
#include "Inhalt.h"

#include <QTest>
#include <QWidget>

namespace qvm::test {
namespace {

std::string LanguageFile(std::string_view language) {
    return Inhalt(std::string(QVM_BINARY_DIR) + "/lang/QVM_" + std::string(language) + ".DAT");
}

} // namespace

void UiFixture::LanguageFiles() {
    for (const std::string_view name : Languages) {
        world.Disk.Files["/q/QVM_" + std::string(name) + ".DAT"] = LanguageFile(name);
    }
}

void UiFixture::Start(std::string_view language, std::string_view mode) {
    LanguageFiles();
    world.Disk.Files["/q/DAT/EST7CSB29A.I_1"] = std::string(language) + "\r\n1\r\nUSB-Port5\r\n3\r\n";
    world.Disk.Files["/q/DAT/CHEUSB25C.I_2"] = std::string(mode) + "\r\n";
    programm = std::make_unique<Programm>(world.World, "/q");
    ASSERT_EQ(Programm_Start(*programm, true), StartResult::Started);
    ASSERT_FALSE(programm->kern.Zeile(9).empty());
}

void UiFixture::SettledLock(int number, std::string_view name, std::string_view serial) {
    files.Lock(number, name, serial, "XXXXX");
    files.Channel(number, "3", "3", "0");
}

void UiFixture::AddAdapter(std::string_view address, std::string_view name, std::string_view port) {
    AdapterSatz adapter;
    adapter.Adresse = address;
    adapter.Name = name;
    adapter.Port = port;
    programm->Adapter.Saetze.push_back(adapter);
}

void UiFixture::Expect(int line, Answer answer) {
    world.Answers.push_back({.Text = programm->kern.Zeile(line), .Reply = answer});
}

void UiFixture::Settle() {
    for (int n = 0; n < 3; ++n) {
        QApplication::processEvents();
    }
}

QPoint UiFixture::CellPlace(const ui::GridView& grid, int row, int column) {
    return grid.viewport()->mapFrom(&grid, grid.cellRect(row, column).center());
}

void UiFixture::ClickCell(ui::GridView& grid, int row, int column, Qt::MouseButton button) {
    QTest::mouseClick(grid.viewport(), button, Qt::NoModifier, CellPlace(grid, row, column));
    Settle();
}

void UiFixture::DoubleClickCell(ui::GridView& grid, int row, int column) {
    const QPoint place = CellPlace(grid, row, column);
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, Qt::NoModifier, place);
    QTest::mouseDClick(grid.viewport(), Qt::LeftButton, Qt::NoModifier, place);
    QTest::mouseRelease(grid.viewport(), Qt::LeftButton, Qt::NoModifier, place);
    Settle();
}

void Present(QWidget& window) {
    window.show();
    QApplication::setActiveWindow(&window);
    UiFixture::Settle();
}

} // namespace qvm::test
