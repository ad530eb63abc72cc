#pragma once

#include "ui/controls.h"
#include "ui/window.h"

#include <array>
#include <cstddef>

namespace brovin::ui {

/// The options window itself, and what stands around its pages.
struct WindowFrame : virtual Form {
    static constexpr std::size_t kTabs = 8;
    template <class T>
    using PerTab = std::array<T, kTabs>;

    Window window{*this, "frmOptions"};
    PerTab<Image> imgTabs{Image{*this, "imgTabs0"}, Image{*this, "imgTabs1"}, Image{*this, "imgTabs2"},
                          Image{*this, "imgTabs3"}, Image{*this, "imgTabs4"}, Image{*this, "imgTabs5"},
                          Image{*this, "imgTabs6"}, Image{*this, "imgTabs7"}};
    PerTab<Label> lblTabs{Label{*this, "lblTabs0"}, Label{*this, "lblTabs1"}, Label{*this, "lblTabs2"},
                          Label{*this, "lblTabs3"}, Label{*this, "lblTabs4"}, Label{*this, "lblTabs5"},
                          Label{*this, "lblTabs6"}, Label{*this, "lblTabs7"}};
    PerTab<Panel> picTab{Panel{*this, "picTab0"}, Panel{*this, "picTab1"}, Panel{*this, "picTab2"},
                         Panel{*this, "picTab3"}, Panel{*this, "picTab4"}, Panel{*this, "picTab5"},
                         Panel{*this, "picTab6"}, Panel{*this, "picTab7"}};
    Panel Picture1{*this, "Picture1"};       ///< the frame around the pages
    MovingFrame tabFrame{*this, "tabFrame"}; ///< around the chosen tab
    Button cmdHelp{*this, "cmdHelp"};
    Button cmdExit{*this, "cmdExit"};
    StatusBar sbStatus{*this, "sbStatus"};
    StatusBar sbScore{*this, "sbScore"};       ///< the totals, which the title shows too while no scan runs
    StatusBar sbProgress{*this, "sbProgress"}; ///< of the scan; shown while one runs, with the button
    Button cmdStopScan{*this, "cmdStopScan"};
    Timer lineTimer{*this, "lineTimer"}; ///< animates the frame around the chosen tab
};

} // namespace brovin::ui
