#pragma once

#include "Messages.h"
#include "Oberflaeche.h"
#include "VirtualPlatform.h"

#include <QStringList>

#include <memory>
#include <string>

namespace qvm::test {

/// Opens one window after the other and takes its picture.
class Fensterschau {
public:
    /// `place`: a program folder with data and language files, which are only read. `prefix`: of the pictures' paths.
    Fensterschau(const QString& place, const std::string& language, QString prefix);

    /// Takes all pictures. Gives what is wrong with them.
    QStringList run();

private:
    void load(const QString& place, const std::string& language);
    void mainWindow();
    void menus();
    void settings();
    void locks();
    void progress();
    void list();
    void history();
    void messageBox();
    /// The picture of what stands on the screen now, as <prefix><name>.png.
    void take(QWidget& window, const char* name);

    VirtualPlatform world_;
    std::unique_ptr<Programm> programm_;
    std::unique_ptr<ui::Oberflaeche> windows_;
    ui::MessageBoxes boxes_;
    QString prefix_;
    QStringList faults_;
};

} // namespace qvm::test
