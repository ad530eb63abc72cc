#pragma once

#include "ui/controls.h"

namespace brovin::ui {

/// Page 7: who made it.
struct AboutPage : virtual Form {
    Image imgBrovin{*this, "imgBrovin"};
    Image imgLogo{*this, "imgLogo"};
    Label lblVersion{*this, "lblVersion"};
    Label lblNumbers{*this, "lblNumbers"}; ///< stands above the statistics
    Label lblFeedback{*this, "lblFeedback"};
};

} // namespace brovin::ui
