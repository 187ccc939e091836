// The white space that each symbology needs around it.
#ifndef VELNOR_TOOL_QUIET_ZONE_SIZES_H
#define VELNOR_TOOL_QUIET_ZONE_SIZES_H

namespace tool {

// In modules.
struct QuietZone {
    bool hasBars; // which need none above and below, where text may stand
    int left;
    int top;
    int right;
    int bottom;

    int largest() const;
};

// `barModules` is the symbol's width in modules: by it the forms of EAN are told apart.
QuietZone quietZoneOf(int symbology, double barModules);

} // namespace tool

#endif
