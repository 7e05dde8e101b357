#include "bring_back_shots.h"

#include <cmath>

#include "stage.h"
#include "ui/alert_button.h"
#include "ui/key_button.h"
#include "ui/panels/bring_back.h"

namespace kzq::gallery {

namespace {

const std::vector<BringBackCopy> copies{
    {5, "erased today 14:02", 42},           {3, "replaced today 13:40", 16}, {12, "erased today 13:40", 67},
    {7, "replaced yesterday 21:15", 29},     {1, "copied Tue 20:51", 151},    {20, "erased 2 Nov 19:20", 33},
    {20, "replaced 31 Dec 2025 23:59", 1440}};
const std::set<unsigned> onPedal{1, 2, 3, 7, 10, 11, 13, 14, 15, 17, 18, 20};

std::shared_ptr<const Peaks> peaks(std::size_t seed) {
    auto made = std::make_shared<Peaks>();
    for (std::size_t at = 0; at < Peaks::columns; ++at) {
        const auto x = static_cast<double>(at);
        const auto beat = std::abs(std::sin(x / (14 + 3 * static_cast<double>(seed))));
        made->heights.at(at) = static_cast<std::uint8_t>(40 + 200 * beat * beat);
    }
    made->known = Peaks::columns;
    return made;
}

class BringBackScene {
  public:
    explicit BringBackScene(std::size_t count = 6) {
        panel_.setKeeping(true);
        panel_.setLoops(onPedal);
        panel_.setCopies({copies.begin(), copies.begin() + static_cast<std::ptrdiff_t>(count)}, "312 MB");
        for (std::size_t at = 0; at < count; ++at) {
            panel_.setPeaks(at, peaks(at));
        }
    }
    BringBack& panel() { return panel_; }
    BringBackScene& select(std::initializer_list<std::size_t> rows) {
        for (const auto row : rows) {
            panel_.rows().at(row)->setOn(true);
        }
        return *this;
    }
    Shot picture(const QString& caption) {
        panel_.setAttribute(Qt::WA_DontShowOnScreen);
        panel_.show();
        return shoot(caption, panel_);
    }

  private:
    BringBack panel_{nullptr};
};

}  // namespace

Shots bringBack() {
    Shots shots{BringBackScene().select({0, 1}).picture("Bring Back"),
                BringBackScene().picture("Nothing chosen"), BringBackScene(1).picture("One copy")};
    BringBackScene many(7);
    shots.push_back(many.select({0, 5, 6}).picture("More than six; the second of two to one slot"));
    BringBackScene heard;
    heard.select({0, 1}).panel().setSound(3, {.on = true, .position = 0.42, .seconds = 12});
    touch(heard.panel().rows().at(4)->ring(), Hand::hovering);
    shots.push_back(heard.picture("A copy plays; the pointer on another ring"));
    BringBackScene lit;
    lit.select({0, 1}).panel().setSound(1, {.on = true, .position = 0.7, .seconds = 11});
    touch(lit.panel().rows().at(1)->ring(), Hand::hovering);
    shots.push_back(lit.picture("A chosen copy plays; the pointer on its disc"));
    BringBackScene away;
    away.select({0, 1}).panel().setLoops(std::nullopt);
    shots.push_back(away.picture("Without a pedal"));
    BringBackScene list;
    list.select({0, 1}).panel().show();
    list.panel().rows().at(0)->leader().click();
    shots.push_back(list.picture("Targets"));
    BringBackScene low;
    low.panel().show();
    low.panel().rows().at(5)->leader().click();
    shots.push_back(low.picture("Targets of the lowest row"));
    BringBackScene pressed;
    touch(pressed.select({0}).panel().acceptButton(), Hand::hovering);
    shots.push_back(pressed.picture("Bring Back, hovered"));
    BringBackScene none(0);
    shots.push_back(none.picture("Nothing kept yet"));
    none.panel().setKeeping(false);
    shots.push_back(none.picture("Nothing kept, and Keep Copies off"));
    return shots;
}

}  // namespace kzq::gallery
