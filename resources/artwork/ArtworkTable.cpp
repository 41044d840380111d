#include "resources/artwork/Artwork.h"

std::vector<ArtworkEntry> ArtworkTable() {
    return {
        {5000, DrawBackground},
        {5001, DrawKnobStrip},
        {5002, [] { return DrawPowerSwitch(true); }},
        {5003, [] { return DrawPowerSwitch(false); }},
        {5004, [] { return DrawTypeSwitch(true); }},
        {5005, [] { return DrawTypeSwitch(false); }},
        {5006, DrawUnusedBitmap},
        {5007, DrawSliderBackground},
        {5008, DrawSliderThumb},
        {5009, DrawMeter},
        {5010, [] { return DrawCopyButton(true); }},
        {5011, [] { return DrawCopyButton(false); }},
        {5012, DrawSaveButton},
        {5013, DrawProgramLamp},
    };
}
