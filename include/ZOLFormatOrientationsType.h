// How a sheet format may be turned: the four orientations a format declares.
#pragma once

/// The orientation of a sheet format; the names are the texts of a standard file.
enum ZOLFormatOrientationsType {
  LandscapeByDefault = 0,
  PortraitByDefault = 1,
  PortraitOnly = 2,
  LandscapeOnly = 3
};
