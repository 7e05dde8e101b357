#include "button_shots.h"

#include <array>
#include <utility>

#include "stage.h"
#include "ui/alert_button.h"
#include "ui/lower_button.h"
#include "ui/mass_selection_button.h"
#include "ui/picture_button.h"
#include "ui/pictures.h"
#include "ui/x_button.h"

namespace kzq::gallery {

namespace {

constexpr std::array hands{std::pair{"at rest", Hand::none}, std::pair{"hover", Hand::hovering},
                           std::pair{"pressed", Hand::pressing}, std::pair{"keyboard", Hand::keyboard}};

template <class Button>
void dress(Button& button, const QString& identifier, const QSize& size) {
    button.setObjectName(identifier);
    button.resize(size);
}

template <class Button>
Shots states(const QString& identifier, const QSize& size) {
    Shots shots;
    for (const auto& [word, hand] : hands) {
        Button button;
        dress(button, identifier, size);
        shots.push_back(shootOnPlate(identifier + ", " + word, button, hand));
    }
    Button button;
    dress(button, identifier, size);
    button.setEnabled(false);
    shots.push_back(shootOnPlate(identifier + ", disabled", button));
    return shots;
}

Shots alertButtons(AlertButton::Face face, const QString& word) {
    Shots shots;
    for (const auto& [state, hand] : hands) {
        AlertButton button(face);
        button.setText(word);
        button.resize(button.sizeHint());
        shots.push_back(shootOnPlate(word + ", " + state, button, hand));
    }
    AlertButton button(face);
    button.setText(word);
    button.resize(button.sizeHint());
    button.setEnabled(false);
    shots.push_back(shootOnPlate(word + ", disabled", button));
    return shots;
}

Shots pictureButton(const QString& name) {
    Shots shots;
    for (const auto& [word, hand] : hands) {
        PictureButton button;
        button.setPicture(name);
        button.resize(picture(name).value_or(Picture{}).size.toSize());
        shots.push_back(shootOnPlate(name + ", " + word, button, hand));
    }
    return shots;
}

}  // namespace

Shots buttons() {
    Shots shots;
    for (const auto* const name :
         {"Erase (lower button)", "Import (lower button)", "Export (lower button)", "Cancel"}) {
        append(shots, states<LowerButton>(name, {112, 40}));
    }
    for (const auto* const name : {"Select_All", "Deselect_All"}) {
        append(shots, states<MassSelectionButton>(name, {80, 32}));
    }
    append(shots, alertButtons(AlertButton::Face::brown, "Yes"));
    append(shots, alertButtons(AlertButton::Face::cream, "Install"));
    append(shots, states<XButton>("x", {16, 16}));
    for (const auto* const name :
         {"Menu_button", "Menu_Import_On", "Menu_Export_Off", "Menu_Import_Off", "Menu_Export_On"}) {
        append(shots, pictureButton(name));
    }
    return shots;
}

}  // namespace kzq::gallery
