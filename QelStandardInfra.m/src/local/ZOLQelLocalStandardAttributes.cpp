// The admission lists of local standards and local styles.
#include "ZOLQelLocalStandardAttributes.h"

#include <string_view>

namespace {

struct Admitted {
  std::string_view path;
  std::string_view ordinal;
};

// Two pairs of sheet colours share their ordinals on purpose; callers of the exported map read them.
constexpr Admitted kLocalStandardPaths[] = {
    {"Annotation.Text.LeaderGap", "1"},
    {"Annotation.Text.LeaderVertSpace", "2"},
    {"Annotation.Roughness.Layout.CutOff.AuthorizedMode", "3"},
    {"Annotation.Roughness.Layout.OtherRequirement.AuthorizedMode", "4"},
    {"Annotation.Roughness.Layout.Min.AuthorizedMode", "5"},
    {"Annotation.Roughness.Layout.Max.AuthorizedMode", "6"},
    {"Annotation.Roughness.LeaderGap", "7"},
    {"Annotation.Roughness.LeaderVertSpace", "8"},
    {"Annotation.Roughness.ExtensionLine.Thickness.Behaviour.FixedRough", "9"},
    {"Annotation.Roughness.ExtensionLine.Thickness.LineThickness", "10"},
    {"Annotation.Roughness.ExtensionLine.GapToSurf", "11"},
    {"Annotation.Roughness.ExtensionLine.LengthSymbol", "12"},
    {"Annotation.Roughness.ExtensionLine.Overrun", "13"},
    {"Annotation.Roughness.LeaderAnchorAccordingToStandard", "14"},
    {"Annotation.BlankBackground.AroundValue.ExtendToFrame", "15"},
    {"Annotation.BlankBackground.AroundValue.Margin", "16"},
    {"Annotation.BlankBackground.AroundLeader.Activated", "17"},
    {"Annotation.BlankBackground.AroundLeader.Margin", "18"},
    {"Annotation.BlankBackground.AroundLeader.MarginAroundRef", "19"},
    {"Annotation.Welding.WeldingStaggeredDisplay.WeldingStaggeredMode", "20"},
    {"Annotation.Welding.WeldingStaggeredDisplayOffset", "21"},
    {"Annotation.Welding.WeldingDisplay.WeldingSystemDisplay", "22"},
    {"Annotation.Welding.Overrun", "23"},
    {"Annotation.Welding.FlagParameter.Parameter1", "24"},
    {"Annotation.Welding.FlagParameter.Parameter2", "25"},
    {"Annotation.Welding.FlagParameter.Parameter3", "26"},
    {"Annotation.Tolerance.AuxiliaryFeatureIndicators.IntersectionPlane.YesNo", "27"},
    {"Annotation.Tolerance.AuxiliaryFeatureIndicators.OrientationPlane.YesNo", "28"},
    {"Annotation.Tolerance.AuxiliaryFeatureIndicators.CollectionPlane.YesNo", "29"},
    {"Annotation.Tolerance.AuxiliaryFeatureIndicators.DirectionFeature.YesNo", "30"},
    {"Annotation.IndicatorEdge.LeaderVertSpace", "31"},
    {"Annotation.IndicatorEdge.Offset1", "32"},
    {"Annotation.IndicatorEdge.Offset2", "33"},
    {"Annotation.IndicatorEdge.Offset3", "34"},
    {"General.SheetColors.View background.InnerFrameColor", "35"},
    {"General.SheetColors.View background.EditionColor", "36"},
    {"General.SheetColors.3DDesign.Color", "35"},
    {"General.SheetColors.View background.Color", "36"},
    {"Patterns.hatching.angle1.1", "37"},
    {"Patterns.hatching.offset1.1", "38"},
    {"Patterns.hatching.pitch1.1", "39"},
    {"Patterns.hatching.linetype1.1", "40"},
    {"Patterns.hatching.color1.1", "41"},
    {"Patterns.hatching.thickness1.1", "42"},
    {"Patterns.coloring.color.1", "43"},
    {"Patterns.coloring.color.15", "44"},
    {"General.UserPreferences.CurrentStandard", "45"},
    {"General.UserPreferences.CurrentLinearUnits", "46"},
    {"General.UserPreferences.CurrentRadialUnits", "47"},
    {"View.ViewText.PrimaryViewText.Automatic.YesNo", "48"},
    {"View.ViewText.PrimaryViewText.CustomText", "49"},
    {"View.ViewText.PrimaryViewText.Scale.Display.DisplayScaleMode", "50"},
    {"View.ViewText.ProjectedViewText.Automatic.YesNo", "51"},
    {"View.ViewText.ProjectedViewText.CustomText", "52"},
    {"View.ViewText.ProjectedViewText.Scale.Display.DisplayScaleMode", "53"},
    {"View.ViewText.AuxiliaryViewText.Automatic.YesNo", "54"},
    {"View.ViewText.AuxiliaryViewText.CustomText", "55"},
    {"View.ViewText.AuxiliaryViewText.Scale.Display.DisplayScaleMode", "56"},
    {"View.ViewText.DetailViewText.Automatic.YesNo", "57"},
    {"View.ViewText.DetailViewText.CustomText", "58"},
    {"View.ViewText.DetailViewText.Scale.Display.DisplayScaleMode", "59"},
    {"View.ViewText.DetailViewText.Indicator.Display.YesNo", "60"},
    {"View.ViewText.SectionViewText.Automatic.YesNo", "61"},
    {"View.ViewText.SectionViewText.CustomText", "62"},
    {"View.ViewText.SectionViewText.Scale.Display.DisplayScaleMode", "63"},
    {"View.ViewText.SectionViewText.Indicator.Display.YesNo", "64"},
};

constexpr std::string_view kLocalStylePaths[] = {
    "Text.Default.Font.Name",
    "Table.Default.CellStyles.WholeTable.Font.Name",
    "DatumFeature.Default.Font.Name",
    "DatumTarget.Default.Font.Name",
    "Tolerance.Default.Font.Name",
    "Balloon.Default.Font.Name",
    "IndicatorEdge.Default.Font.Name",
    "RoughnessSymbol.Default.Font.Name",
    "WeldingSymbol.Default.Font.Name",
    "Text.Default.Font.Size",
    "Table.Default.CellStyles.WholeTable.Font.Size",
    "DatumFeature.Default.Font.Size",
    "DatumTarget.Default.Font.Size",
    "Tolerance.Default.Font.Size",
    "Balloon.Default.Font.Size",
    "IndicatorEdge.Default.Font.Size",
    "RoughnessSymbol.Default.Font.Size",
    "WeldingSymbol.Default.Font.Size",
    "Text.Default.Text.Justification.TextJustification",
    "Text.Default.Leader.Delta",
    "Text.Default.Leader.AnchorPoint",
    "Text.Default.Leader.Symbol.ArrowEndType",
    "Table.Default.Leader.Delta",
    "Table.Default.Leader.AnchorPoint",
    "Table.Default.Leader.Symbol.ArrowEndType",
    "DatumFeature.Default.Leader.Symbol.ArrowEndType",
    "DatumTarget.Default.Leader.Symbol.ArrowEndType",
    "Tolerance.Default.Leader.Delta",
    "Tolerance.Default.Leader.AnchorPoint",
    "Tolerance.Default.Leader.Symbol.ArrowEndType",
    "Balloon.Default.Leader.Symbol.ArrowEndType",
    "IndicatorEdge.Default.Leader.Delta",
    "IndicatorEdge.Default.Leader.Symbol.ArrowEndType",
    "RoughnessSymbol.Default.Leader.Delta",
    "RoughnessSymbol.Default.Leader.AnchorPoint",
    "RoughnessSymbol.Default.Leader.Symbol.ArrowEndType",
    "WeldingSymbol.Default.Leader.Symbol.ArrowEndType",
    "DatumTarget.Default.SizeSpecifier.DatumTargetSizeSpecifier",
    "DatumTarget.Default.Movable.YesNo",
    "DistanceLengthDimension.Default.ValueDisplayFormat.MainValue.Name",
    "DiameterDimension.Default.ValueDisplayFormat.MainValue.Name",
    "RadiusDimension.Default.ValueDisplayFormat.MainValue.Name",
    "AngleDimension.Default.ValueDisplayFormat.MainValue.Name",
    "DistanceLengthDimension.Default.Font.Name",
    "DiameterDimension.Default.Font.Name",
    "RadiusDimension.Default.Font.Name",
    "AngleDimension.Default.Font.Name",
    "DistanceLengthDimension.Default.Font.Size",
    "DiameterDimension.Default.Font.Size",
    "RadiusDimension.Default.Font.Size",
    "AngleDimension.Default.Font.Size",
    "DistanceLengthDimension.Default.ValueDisplayFormat.MainValue.Precision",
    "DiameterDimension.Default.ValueDisplayFormat.MainValue.Precision",
    "RadiusDimension.Default.ValueDisplayFormat.MainValue.Precision",
    "AngleDimension.Default.ValueDisplayFormat.MainValue.Precision",
    "SectionCallout.Default.Profile.LineType",
    "SectionCallout.Default.Profile.Thickness",
    "SectionCallout.Default.Type.CalloutTypes",
    "SectionCallout.Default.Corners.Length",
    "SectionCallout.Default.Corners.Thickness",
    "SectionCallout.Default.Arrows.Head.Length",
    "SectionCallout.Default.Arrows.Head.Angle",
    "SectionCallout.Default.Arrows.Length",
    "SectionCallout.Default.Arrows.Thickness",
    "SectionCallout.Default.Text.Font.Name",
    "SectionCallout.Default.Text.Font.Size",
    "Text.ViewText.Font.Name",
    "DetailCallout.Default.LineType",
    "DetailCallout.Default.Thickness",
    "DetailCallout.Default.Type.DetailCalloutTypes",
    "DetailCallout.Default.Arrows.Head.Angle",
    "DetailCallout.Default.Arrows.Head.Length",
    "DetailCallout.Default.Text.Font.Name",
    "DetailCallout.Default.Text.Font.Size",
    "Sheet.A0 ISO.GlobalScale",
    "Sheet.A1 ISO.GlobalScale",
    "Sheet.A2 ISO.GlobalScale",
    "Sheet.A3 ISO.GlobalScale",
    "Sheet.A4 ISO.GlobalScale",
    "Sheet.A ANSI.GlobalScale",
    "Sheet.B ANSI.GlobalScale",
    "Sheet.C ANSI.GlobalScale",
    "Sheet.D ANSI.GlobalScale",
    "Sheet.E ANSI.GlobalScale",
    "Sheet.A0 JIS.GlobalScale",
    "Sheet.A1 JIS.GlobalScale",
    "Sheet.A2 JIS.GlobalScale",
    "Sheet.A3 JIS.GlobalScale",
    "Sheet.A4 JIS.GlobalScale",
    "Text.PrimaryViewText.Font.Name",
    "Text.PrimaryViewText.Font.Size",
    "Text.PrimaryViewText.ScaleFont.Name",
    "Text.PrimaryViewText.ScaleFont.Size",
    "Text.ProjectedViewText.Font.Name",
    "Text.ProjectedViewText.Font.Size",
    "Text.ProjectedViewText.ScaleFont.Name",
    "Text.ProjectedViewText.ScaleFont.Size",
    "Text.AuxiliaryViewText.Font.Name",
    "Text.AuxiliaryViewText.Font.Size",
    "Text.AuxiliaryViewText.ScaleFont.Name",
    "Text.AuxiliaryViewText.ScaleFont.Size",
    "Text.SectionViewText.Font.Name",
    "Text.SectionViewText.Font.Size",
    "Text.SectionViewText.ScaleFont.Name",
    "Text.SectionViewText.ScaleFont.Size",
    "Text.SectionViewText.IndicatorFont.Name",
    "Text.SectionViewText.IndicatorFont.Size",
    "Text.DetailViewText.Font.Name",
    "Text.DetailViewText.Font.Size",
    "Text.DetailViewText.ScaleFont.Name",
    "Text.DetailViewText.ScaleFont.Size",
    "Text.DetailViewText.IndicatorFont.Name",
    "Text.DetailViewText.IndicatorFont.Size",
    "Sheet.ViewMode",
};

std::shared_ptr<LocalAttributeMap> BuildStandardMap() {
  auto map = std::make_shared<LocalAttributeMap>();
  map->reserve(44);
  for (const Admitted& a : kLocalStandardPaths) map->emplace(a.path, a.ordinal);
  return map;
}

std::shared_ptr<LocalAttributeMap> BuildStyleMap() {
  auto map = std::make_shared<LocalAttributeMap>();
  map->reserve(100);
  int ordinal = 0;
  for (std::string_view path : kLocalStylePaths) map->emplace(path, std::to_string(++ordinal));
  return map;
}

}  // namespace

namespace ZOLQelLocalStandardAttributes {

void GetLocalStandardMap(std::shared_ptr<LocalAttributeMap>& handle) {
  static const std::shared_ptr<LocalAttributeMap> map = BuildStandardMap();
  handle = map;
}

void GetLocalStyleMap(std::shared_ptr<LocalAttributeMap>& handle) {
  static const std::shared_ptr<LocalAttributeMap> map = BuildStyleMap();
  handle = map;
}

}  // namespace ZOLQelLocalStandardAttributes
