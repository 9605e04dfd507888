// The windows in English, and in Korean as ever.

#include "desktop/language.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QMessageBox>
#include <QRegularExpression>
#include <QToolBar>

#include "desktop/condition_faces.h"
#include "desktop/job_faces.h"
#include "desktop/restart_face.h"
#include "desktop/result_faces.h"
#include "desktop/settings_faces.h"
#include "desktop_test.h"
#include "platform/number_field.h"
#include "shell/view_operations.h"

namespace tvx {
namespace {

// Everything that can be read on an object: captions, rows, tips. Not what a user has typed.
QStringList TextsOn(const QObject* object) {
  QStringList texts;
  for (const char* const name : {"text", "title", "windowTitle", "toolTip", "statusTip",
                                 "placeholderText", "accessibleName", "informativeText"}) {
    if (qobject_cast<const QLineEdit*>(object) != nullptr && std::string_view(name) == "text") {
      continue;
    }
    texts << object->property(name).toString();
  }
  const auto* const combo = qobject_cast<const QComboBox*>(object);
  const auto* const view = qobject_cast<const QAbstractItemView*>(object);
  const QAbstractItemModel* model = view == nullptr ? nullptr : view->model();
  if (combo != nullptr) model = combo->model();
  for (int row = 0; model != nullptr && row < model->rowCount(); ++row) {
    for (int column = 0; column < model->columnCount(); ++column) {
      texts << model->index(row, column).data().toString();
    }
  }
  return texts;
}

QStringList TextsIn(const QObject* window) {
  QStringList texts = TextsOn(window);
  for (const QObject* const child : window->findChildren<QObject*>()) texts << TextsOn(child);
  texts.removeAll(QString());
  return texts;
}

QStringList Hangul(const QStringList& texts) {
  return texts.filter(QRegularExpression("[가-힣]"));
}

class English : public DesktopTest {
 protected:
  English() : DesktopTest(kEnglishLabels) {}

  // The next window: it has texts, none of them Korean, and `then` works it until it is closed.
  template <typename Window>
  void Next(std::function<void(Window*)> then = [](Window* shown) { shown->reject(); }) {
    user.On<Window>([then = std::move(then)](Window* shown) {
      const QStringList texts = TextsIn(shown);
      EXPECT_FALSE(texts.isEmpty());
      EXPECT_EQ(Hangul(texts), QStringList()) << FromQt(shown->windowTitle());
      then(shown);
    });
  }
};

TEST_F(English, TheMainWindow) {
  window->LoadHostFile(ToQt(PutProgram("part.nc", "G90 G0 X0\nG1 X60 F1000\n").string()));
  Settle();
  const QStringList texts = TextsIn(window.get());
  EXPECT_EQ(Hangul(texts), QStringList());
  for (const char* const text :
       {"&File", "&Load\t(Ctrl+T)", "Load an Nc data file.", "From Above(F1)", "Total time"}) {
    EXPECT_TRUE(texts.contains(text)) << text;
  }
}

TEST_F(English, TheDialogsOfTheMenus) {
  using enum CommandId;
  for (const CommandId id : {kConfiguration, kUserKey1, kMasterBuild, kMasterDelete, kLoad,
                             kWritePicture, kMasterLoad, kAbout, kResultList}) {
    SCOPED_TRACE(static_cast<int>(id));
    Next<QDialog>();
    window->RunCommand(id);
    ASSERT_TRUE(user.Done());
  }
  app.DirectoryList = {"c:\\"};
  Next<DirListFace>([](DirListFace* face) {
    face->findChild<QListWidget*>()->setCurrentRow(0);
    Click(face, "Change");
    face->reject();
  });
  Next<TextInputFace>();
  window->RunCommand(CommandId::kDirectoryList);
}

TEST_F(English, TheDialogsOfOneFile) {
  Next<SendOptionFace>([](SendOptionFace* face) {
    ButtonFrom(face, "Afa:")->click();
    EXPECT_EQ(EditOf(face, "Highest feed")->text(), "1700");
    Do(face, {{"Set"}, {"GetFeed"}});
    EXPECT_NE(EditOf(face, "Highest feed")->text(), "1700");
    Do(face, {{"Highest feed", "200000"}, {"OK"}});  // refused
    Do(face, {{"Highest feed", "2000"}, {"OK"}});
  });
  Next<AutoFeedFace>([](AutoFeedFace* face) { Do(face, {{"Maximum feed", "1700"}, {"OK"}}); });
  Next<AfaSetupFace>([](AfaSetupFace* face) {
    EXPECT_TRUE(TextsIn(face).contains("30 deg weight(0.70)"));
    face->reject();
  });
  Next<QDialog>([](QDialog* calculator) {
    Do(calculator, {{"Work material", "Brass"}, {"Tool material", "Carbide"}, {"OK"}});
  });
  Next<QMessageBox>([](QMessageBox* message) {
    EXPECT_EQ(message->text(), "Please enter a value from 0 to 100000.");
    message->accept();
  });
  Next<FileInfoFace>();
  window->RunCommand(CommandId::kSingleCutTime);
  EXPECT_EQ(View().job.Material, "황동") << "what is stored is the same in every language";
}

TEST_F(English, TheFiguresOfEveryKindOfRestart) {
  for (const int32_t kind : {1, 2, 3, 4}) {
    CFileInfoDlg info;
    info.current.RestartOn = 1;
    info.current.RestartKind = kind;
    info.current.RestartZMin = -1.5F;
    info.current.AfaEnabled = kind % 2;
    info.current.FeedChgSmoothCheck = info.current.XyChgReduceCheck = 1;
    info.current.totalMinutes = 1234.5F;
    Next<FileInfoFace>([](FileInfoFace* face) {
      EXPECT_TRUE(TextsIn(face).contains("Total time 1234.5 min"));
      face->reject();
    });
    ui.RunModal(&info);
  }
}

TEST_F(English, TheCommandPadAndItsOptions) {
  Next<QDialog>([](QDialog* pad) { Click(pad, "Settings"); });
  Next<OptionFace>();
  OpenCommandPad(&View());
}

TEST_F(English, TheJobList) {
  Next<TransferFace>([](TransferFace* face) {
    ButtonFrom(face, "Restart")->click();
    EXPECT_EQ(Hangul(TextsIn(face)), QStringList());
    face->reject();
  });
  Next<RestartFace>([](RestartFace* face) { Do(face, {{"Z area"}, {"OK"}}); });
  window->RunCommand(CommandId::kRunJobList);
}

TEST_F(English, Messages) {
  float number;
  int32_t whole;
  const std::function<void()> says[] = {
      [&] { AcceptNumber("x", 0, 1, &ui, &number); },
      [&] { AcceptWholeNumber("1.5", 0, 1, &ui, &whole); },
      [&] { window->LoadHostFile("/no/such/file.nc"); },
      [&] { ui.ShowMessage(MessageOf(JobMessage::kCannotEnter)); },
      [&] { ui.ShowMessage(MessageOf(JobMessage::kCannotOpen)); },
  };
  for (const auto& say : says) {
    Next<QMessageBox>();
    say();
  }
  user.OnFile(home / "drive_c/marlo/a.mma");
  window->RunCommand(CommandId::kMasterSave);
  EXPECT_TRUE(TextsIn(window.get()).contains("There is no master model to save."));
  EXPECT_EQ(Hangul(TextsIn(window.get())), QStringList()) << "the status line";
}

TEST_F(English, WhatTheUserHasNamedKeepsItsName) {
  View().job.Material = "삭제";
  View().job.AfaMasterFile = "c:\\설정.mma";
  user.On<SendOptionFace>([](SendOptionFace* face) {
    const QStringList texts = TextsIn(face);
    EXPECT_EQ(Hangul(texts).size(), 2) << FromQt(Hangul(texts).join('\n'));
    EXPECT_TRUE(texts.contains("MMA : c:\\설정.mma"));
    face->reject();
  });
  window->RunCommand(CommandId::kSingleCutTime);
}

TEST_F(English, FilesAreTheSame) {
  user.Does<DirSetupFace>({{"Save"}});
  window->RunCommand(CommandId::kConfiguration);
  EXPECT_TRUE(HostBytes(home / "drive_c/windows/tvx.cfg").starts_with("\xC8\xAF\xB0\xE6"));
}

using Korean = DesktopTest;

TEST_F(Korean, EveryTextIsAsTheTablesHaveIt) {
  EXPECT_EQ(Translated("화일(&F)"), "화일(&F)");
  EXPECT_EQ(Translated("소요시간 1.5 min"), "소요시간 1.5 min");
  QStringList menus;
  for (const QAction* const entry : window->menuBar()->actions()) {
    if (entry->isVisible()) menus << entry->text();
  }
  EXPECT_EQ(menus, QStringList({"화일(&F)", "Cut Time", "마스타", "그래픽(&G)", "설정", "기타",
                                "&View", "&Window", "&Help"}));
}

}  // namespace
}  // namespace tvx
