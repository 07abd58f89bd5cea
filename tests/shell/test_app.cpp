// The main program of the desktop tests: a real wx application on a real (or virtual) display.
#include <gtest/gtest.h>
#include <wx/app.h>
#include <wx/evtloop.h>

#include "shell/test_app.h"

namespace {

class TestApp final : public wxApp {
 public:
  bool OnInit() override { return true; }
};

void FailOnAssert(const wxString& file, int line, const wxString&, const wxString& condition,
                  const wxString& message) {
  ADD_FAILURE() << file.utf8_string() << ':' << line << ": " << condition.utf8_string() << ' '
                << message.utf8_string();
}

}  // namespace

namespace tarvelo {

void Settle() {
  wxEventLoopBase& loop = *wxEventLoopBase::GetActive();
  wxTheApp->ProcessPendingEvents();
  while (loop.Pending()) {
    loop.Dispatch();
    wxTheApp->ProcessPendingEvents();
  }
  while (loop.ProcessIdle()) {
  }
}

}  // namespace tarvelo

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  if (GTEST_FLAG_GET(list_tests)) return RUN_ALL_TESTS();  // needs no display
  wxApp::SetInstance(new TestApp);
  if (!wxEntryStart(argc, argv) || !wxTheApp->CallOnInit()) {
    std::fputs("there is no display to run on\n", stderr);
    return 1;
  }
  wxSetAssertHandler(FailOnAssert);
  int result = 0;
  {
    wxGUIEventLoop loop;
    const wxEventLoopActivator activator(&loop);
    result = RUN_ALL_TESTS();
  }
  wxEntryCleanup();
  return result;
}
