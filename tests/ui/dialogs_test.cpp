// Dialogs that run loops of their own, answered by a script that goes on inside the loops.
#include "support/recorderscreen.h"
#include "support/signallog.h"
#include "ui/dialogs/busysign.h"
#include "ui/dialogs/dialogframe.h"
#include "ui/dialogs/msgbox.h"
#include "ui/dialogs/progressdialog.h"
#include "ui/dialogs/windowblocker.h"
#include "ui/text_ids.h"

#include <deque>
#include <zrguard>
#include <zrpushbutton>

namespace
{

using Step = std::function<void()>;

// Takes its steps one by one from the event queue, in whatever loop is the innermost then; a step
// that runs a loop needs a script of its own for it.
class Script : public ZrObject
{
public:
    explicit Script(std::initializer_list<Step> steps) : steps_(steps) { next(); }
    bool isDone() const { return steps_.empty(); }

    void customEvent(ZrEvent *) override
    {
        const Step step = steps_.front();
        steps_.pop_front();
        step();
        next();
    }

private:
    void next()
    {
        if (!steps_.empty())
            ZrApplication::postEvent(this, new CEvent(ZrEvent::ControlRequest));
    }

    std::deque<Step> steps_;
};

class Dialogs : public zrtest::RecorderScreen
{
protected:
    DialogFrame *frontFrame() { return dynamic_cast<DialogFrame *>(ZrDesktop::modalWidget()); }
    template <typename Page>
    Page *frontPage()
    {
        return frontFrame() ? dynamic_cast<Page *>(frontFrame()->content()) : nullptr;
    }
    void click(const ZrWidget *widget)
    {
        ASSERT_NE(widget, nullptr);
        const ZrPoint at = widget->mapToGlobal(widget->rect().center());
        screen->click(at.x(), at.y());
    }
    void press(MsgBox::Button button) { click(frontPage<MsgBox>()->button(button)); }
};

int ask(int buttons, int timeLimitMs = 0, bool showsCountdown = false)
{
    MsgBox::Request request;
    request.text = ZrString("Format disk 2? All recordings on it are lost.");
    request.sign = MsgBox::Sign::Question;
    request.buttons = buttons;
    request.timeLimitMs = timeLimitMs;
    request.showsCountdown = showsCountdown;
    return MsgBox::run(request);
}

} // namespace

TEST_F(Dialogs, MessagesReturnWhatWasAnswered)
{
    const int all =
        MsgBox::Ok | MsgBox::Yes | MsgBox::Continue | MsgBox::Close | MsgBox::No | MsgBox::Cancel;
    const struct {
        const char *what;
        int buttons;
        Step answer;
        int result;
    } rows[] = {
        {"ok", all, [&] { press(MsgBox::Ok); }, 1},
        {"yes", all, [&] { press(MsgBox::Yes); }, 1},
        {"continue", all, [&] { press(MsgBox::Continue); }, 1},
        {"close", all, [&] { press(MsgBox::Close); }, 0},
        {"no", all, [&] { press(MsgBox::No); }, 0},
        {"cancel", all, [&] { press(MsgBox::Cancel); }, 0},
        {"Escape", MsgBox::Ok, [&] { key(Zr::Key_Escape); }, 0},
        {"Enter answers with the harmless one", MsgBox::Yes | MsgBox::No,
         [&] {
             key(Zr::Key_Enter);
             screen->pass(ZrAbstractButton::KeyPressMs);
         },
         0},
    };
    for (const auto &row : rows) {
        const Script script{row.answer};
        EXPECT_EQ(ask(row.buttons), row.result) << row.what;
        EXPECT_TRUE(script.isDone());
        EXPECT_EQ(ZrDesktop::modalWidget(), nullptr) << row.what;
    }
}

TEST_F(Dialogs, MessagesEndByThemselvesWhenTheirTimeIsOver)
{
    std::string counted;
    const Script script{[&] {
        for (const int ms : {999, 1001, 1000}) {
            const ZrGuard<MsgBox> page(frontPage<MsgBox>());
            screen->pass(ms);
            if (page)
                counted += std::to_string(page->secondsLeft());
        }
    }};
    EXPECT_EQ(ask(MsgBox::NoButtons, 3000, true), 0);
    EXPECT_EQ(counted, "310");
}

TEST_F(Dialogs, AMessageWithoutButtonsStaysUntilItsCallerEndsIt)
{
    bool stayed = false;
    const Script script{
        [&] { key(Zr::Key_Escape); },
        [&] { screen->click(5, 5); },
        [&] { stayed = frontFrame() && frontFrame()->isVisible(); },
        [&] { frontFrame()->done(ZrDialog::Accepted); },
    };
    EXPECT_EQ(ask(MsgBox::NoButtons), 1);
    EXPECT_TRUE(stayed);
}

TEST_F(Dialogs, NestAndReopen)
{
    const auto askInside = [&](int buttons, MsgBox::Button answer, int result) {
        return [this, buttons, answer, result] {
            const Script inside{[&] { press(answer); }};
            EXPECT_EQ(ask(buttons), result);
            EXPECT_NE(frontPage<MsgBox>()->button(MsgBox::Ok), nullptr) << "the outer is in front";
        };
    };
    const Script script{
        askInside(MsgBox::Yes | MsgBox::No, MsgBox::Yes, 1),
        askInside(MsgBox::Close, MsgBox::Close, 0),
        [&] { press(MsgBox::Ok); },
    };
    EXPECT_EQ(ask(MsgBox::Ok), 1);
    EXPECT_TRUE(script.isDone());
    const Script again{[&] { press(MsgBox::Ok); }};
    EXPECT_EQ(ask(MsgBox::Ok), 1);
}

TEST_F(Dialogs, ADialogThatIsDestroyedInItsLoopReturnsZero)
{
    auto *frame = new DialogFrame(new DialogContentBase, ZrString("Title"));
    frame->setAttribute(ZrWidget::DeleteOnClose, false);
    const Script script{[&] { delete frame; }};
    EXPECT_EQ(frame->exec(), 0);
    EXPECT_EQ(ZrDesktop::modalWidget(), nullptr);
}

TEST_F(Dialogs, ThePageIsAskedBeforeItsFrameEnds)
{
    struct Page : DialogContentBase {
        bool okPressed() override { return allow; }
        bool cancelPressed() override { return allow; }
        ZrSize preferredSize() const override { return ZrSize(400, 100); }
        bool allow = false;
    };
    auto *page = new Page;
    DialogFrame frame(page, ZrString("Title"));
    frame.setAttribute(ZrWidget::DeleteOnClose, false);
    zrtest::SignalLog log;
    log.watch<'a'>(&frame, &frame.accepted);
    log.watch<'r'>(&frame, &frame.rejected);
    const Script script{
        [&] { click(frame.okButton()); },
        [&] { click(frame.cancelButton()); },
        [&] { EXPECT_TRUE(frame.isVisible()) << "the page wants to stay"; },
        [&] {
            page->allow = true;
            click(frame.okButton());
        },
    };
    EXPECT_EQ(frame.exec(), ZrDialog::Accepted);
    EXPECT_EQ(log.take(), "a");
    const Script again{[&] { click(frame.cancelButton()); }};
    EXPECT_EQ(frame.exec(), ZrDialog::Rejected);
    EXPECT_EQ(log.take(), "r");
}

TEST_F(Dialogs, ProgressEndsWhenCompleteOrCalledOff)
{
    const auto run = [&](ProgressDialog::Cancelling cancelling, std::initializer_list<Step> steps) {
        const Script script(steps);
        return DialogFrame::run(new ProgressDialog(ZrString("Copying"), cancelling),
                                ZrString("Backup"), 0);
    };
    const auto percent = [&](int value) {
        return [this, value] { frontPage<ProgressDialog>()->setPercent(value); };
    };
    const auto escape = [&] { key(Zr::Key_Escape); };
    EXPECT_EQ(run(ProgressDialog::Cancelling::Possible, {percent(40), percent(100)}), 1);
    EXPECT_EQ(run(ProgressDialog::Cancelling::Possible, {percent(40), escape}), 0);
    EXPECT_EQ(run(ProgressDialog::Cancelling::Impossible, {escape, percent(200)}), 1)
        << "cannot be called off";
}

TEST_F(Dialogs, ABlockerTakesAllInputAndTellsWhatItWaitsForOnceItIsSlow)
{
    auto *button = show(new ZrPushButton(window.get()), ZrRect(20, 20, 100, 40));
    zrtest::SignalLog log;
    log.watch<'c'>(button, &button->clicked);
    {
        const WindowBlocker outer(ZrString("Searching"));
        screen->click(30, 30);
        key(Zr::Key_Enter);
        screen->pass(ZrAbstractButton::KeyPressMs);
        EXPECT_EQ(log.take(), "");
        {
            const WindowBlocker inner;
            screen->pass(900);
            screen->click(30, 30);
        }
        screen->click(30, 30);
        EXPECT_EQ(log.take(), "") << "the outer one still holds";
    }
    EXPECT_EQ(ZrDesktop::modalWidget(), nullptr);
    screen->settle();
    screen->click(30, 30);
    EXPECT_EQ(log.take(), "c");
}
