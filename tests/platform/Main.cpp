#include "OtherProgram.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    if (const int code = qvm::test::RoleOf(argc, argv); code >= 0) {
        return code;
    }
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
