#include "companion/word_generator.h"

#include "platform/random.h"

#include <array>
#include <string_view>

namespace brovin::companion {
namespace {

/// Spellings and the double "Dangle" are meant; the order fixes which word a draw gives.
constexpr std::array<std::string_view, 147> kVocabulary = {
    "Fleecy",      "Droop",     "Sag",          "Dangle",   "Clag",      "Ointment", "Slit/Slot",
    "Juicy/Juice", "Yeast",     "Dough",        "Rag",      "Cream",     "Flaps",    "Sack",
    "Crusty",      "Moist",     "Pucker",       "Floppy",   "Wrinkly",   "Squat",    "Loose",
    "Gush",        "Flog",      "Fluid",        "Wipe",     "Ream/Reem", "Orifice",  "Bung/Bung-hole",
    "Crumpet",     "Oyster",    "Cockpit",      "Fiddle",   "Cranny",    "Nook",     "Dribble",
    "Nit",         "Scroll",    "Doily",        "Froth",    "Bumkin",    "Yokel",    "Jolly Roger",
    "Herpes",      "Slash",     "Bush/Bushy",   "Rub",      "Snatch",    "Puce",     "Frig",
    "Stiff",       "Glob",      "Scab",         "Pus",      "Phlegm",    "Bulge",    "Dangle",
    "Mump",        "Rigid",     "Ooze",         "Soggy",    "Limp",      "Flaccid",  "Panties",
    "Felch",       "Gash",      "Jowls",        "Prolapse", "Muff",      "Scat",     "Spam javelin",
    "Wedge",       "Shaft",     "Gape",         "Spurt",    "Crack",     "Probe",    "Throb",
    "Rubber",      "Gerbil",    "Swallow",      "Finger",   "Spread",    "Bone",     "Doodle",
    "Spunk",       "Plunge",    "Cheese",       "Sodden",   "Coit",      "Pound",    "Dripping",
    "Salty",       "Bib",       "Mop",          "Chafe",    "Chunk",     "Vent",     "Sphincter",
    "Fangle",      "Quiche",    "Cack",         "Mung",     "Piston",    "Jube",     "Slapper",
    "Scrubber",    "Fondle",    "Nib",          "Pant",     "Nail",      "Norg",     "Engorge",
    "Jug",         "Groin",     "Fun Bag",      "Stool",    "Trout",     "Pouch",    "Plump",
    "Minge",       "Flap Snot", "Jab",          "Quince",   "Rim",       "strudel",  "Hunker",
    "Erupt",       "Skivvy",    "Snug",         "Jersey",   "Discharge", "Gruff",    "Dab",
    "Protrude",    "Spagnum",   "Shuttle-cock", "Clot",     "Smock",     "Bran",     "Crimp",
    "Clench",      "Nozzle",    "Masticate",    "Secrete",  "Goop",      "Cubby",    "Broth",
};

} // namespace

std::string makeWord(platform::Random& random) {
    return std::string(kVocabulary[drawBelow(random, kVocabulary.size())]);
}

} // namespace brovin::companion
