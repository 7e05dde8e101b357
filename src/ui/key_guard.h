#pragma once

#include <QKeyEvent>
#include <QPointer>
#include <QWindow>
#include <memory>
#include <optional>
#include <set>
#include <vector>

#include "platform/executor.h"
#include "platform/fixed.h"

namespace kzq {

/// What the keyboard really does, under all that acts on keys: buttons, alerts, the menu. It is shown every
/// key event at the window that it reaches first. Main thread.
///
/// While a key is held, the toolkit brings releases and presses and is to say that they are repeats; on a
/// busy machine it does not know in time. A repeat's release and press come at one moment, after the key was
/// down for longer than a tap, and by that they are recognised here. So the release of such a key is kept
/// back for a moment, until it is clear that no press follows.
///
/// An alert takes no key that was down when it opened, and none before it could be read. While it comes up,
/// the toolkit drops what is let go over the window below. So a key that comes again after another, or after
/// a longer silence than any keyboard's, was let go unseen.
class KeyGuard {
  public:
    enum class Verdict {
        act,     ///< a press or a release
        repeat,  ///< of a key that is held, whatever the event says
        nothing  ///< the event goes no further; a release that is kept back comes again by itself
    };
    /// An alert that is open, from its construction to its end. The guard outlives it.
    class OpenAlert : Fixed {
      public:
        explicit OpenAlert(KeyGuard& guard);
        ~OpenAlert();

        /// It can be seen from now on.
        void appeared();

      private:
        friend KeyGuard;
        bool takes(quint32 key, bool pressed);

        KeyGuard& guard_;
        std::optional<Executor::TimePoint> appeared_;
        std::set<quint32> deaf_;  ///< to these keys, until they are let go
    };

    /// `executor` outlives it.
    explicit KeyGuard(Executor& executor) : executor_(executor) {}

    Verdict judge(QWindow& window, const QKeyEvent& event);
    /// Before anything else that the user does: a release that is kept back comes first.
    void release();
    /// Keys go to another program now, which may see the releases of those that are down.
    void leave() { down_.clear(); }

  private:
    struct Kept {
        QPointer<QWindow> window;
        std::unique_ptr<QKeyEvent> event;
    };
    /// The key that was pressed last: the only one that can repeat. Times in milliseconds, as events have
    /// them.
    struct Last {
        quint32 key = 0;
        quint64 pressed = 0;
        quint64 heard = 0;  ///< its last event, a repeat too
        std::optional<quint64> released;
        bool repeats(quint32 next, quint64 time) const;
        /// Whether a press at this time may be of the same long one.
        bool goesOn(quint32 next, quint64 time) const;
    };

    Verdict pressed(quint32 key, const QKeyEvent& event);
    Verdict released(QWindow& window, quint32 key, const QKeyEvent& event);
    Verdict letGo(quint32 key);
    bool alertTakes(quint32 key, bool pressed) const;

    Executor& executor_;
    Last last_;
    std::set<quint32> down_;
    std::shared_ptr<Kept> kept_;
    bool coming_ = false;  ///< the next event is the one that was kept back
    std::vector<OpenAlert*> alerts_;
};

}  // namespace kzq
