#include <gtest/gtest.h>

#include <QApplication>

#include "Desk.h"
#include "desktop/Skin.h"

int main(int count, char** arguments) {
  testing::InitGoogleTest(&count, arguments);
  QApplication application(count, arguments);
  tarvo::ApplySkin(application);
  tarvo::test::ListenForComplaints();
  return RUN_ALL_TESTS();
}
