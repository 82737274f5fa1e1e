// A session whose editor is open in a host window, on the host's test clock.
#pragma once

#include "host/ui/host_clock.h"
#include "host/ui/host_windows.h"
#include "host/ui/messages.h"
#include "host/ui/window_tree.h"
#include "tests/session/session_fixture.h"

class EditorSessionTest : public SessionTest {
protected:
    void SetUp() override {
        SessionTest::SetUp();
        kobal_layer::resetWindowingLayer();
        kobal_layer::useTestClock(5000);
        host = kobal_layer::createHostWindow("session", RECT{20, 20, 1020, 660});
        ASSERT_TRUE(session->openEditor(host));
        kobal_layer::pumpMessages();
        ASSERT_EQ(kobal_layer::liveWindow(host)->children.size(), 1u);
        editor = kobal_layer::liveWindow(host)->children[0];
        session->clearHostCalls();
    }
    void TearDown() override {
        session->closeEditor();
        kobal_layer::resetWindowingLayer();
        kobal_layer::useRealClock();
    }

    HWND host = nullptr;
    HWND editor = nullptr;
};
