#pragma once

#include <xercesc/util/XercesDefs.hpp>

namespace Veld::Quor::Core::Service::XML {

/// The texts of the tags, attributes and attribute values of a syntax document, UTF-16 and never freed.
class Tags {
public:
    /// The text of the tag, attribute or attribute value of that name.
    /// @{
    static const XMLCh* Alias() { return u"alias"; }
    static const XMLCh* Aliases() { return u"aliases"; }
    static const XMLCh* Assignment() { return u"assignment"; }
    static const XMLCh* Boolean() { return u"boolean"; }
    static const XMLCh* Calculated() { return u"calculated"; }
    static const XMLCh* CanContainComma() { return u"canContainComma"; }
    static const XMLCh* CaseSensitive() { return u"caseSensitive"; }
    static const XMLCh* Category() { return u"category"; }
    static const XMLCh* Cell() { return u"cell"; }
    static const XMLCh* Choice() { return u"choice"; }
    static const XMLCh* ClassicOnly() { return u"classicOnly"; }
    static const XMLCh* ColumnConstraint() { return u"columnConstraint"; }
    static const XMLCh* Components() { return u"components"; }
    static const XMLCh* CopyLayerAboveByDefault() { return u"copyLayerAboveByDefault"; }
    static const XMLCh* CustomReadTermination() { return u"customReadTermination"; }
    static const XMLCh* Data() { return u"data"; }
    static const XMLCh* Default() { return u"default"; }
    static const XMLCh* Description() { return u"description"; }
    static const XMLCh* Documentation() { return u"documentation"; }
    static const XMLCh* DualPorosityMatrixOnly() { return u"dualPorosityMatrixOnly"; }
    static const XMLCh* EndKeyword() { return u"endKeyword"; }
    static const XMLCh* Explicit() { return u"explicit"; }
    static const XMLCh* FillEmptyElementsWithPreviousValue() { return u"fillEmptyElementsWithPreviousValue"; }
    static const XMLCh* Format() { return u"format"; }
    static const XMLCh* GridEditsOnly() { return u"gridEditsOnly"; }
    static const XMLCh* ID() { return u"id"; }
    static const XMLCh* Identifier() { return u"identifier"; }
    static const XMLCh* Ignored() { return u"ignored"; }
    static const XMLCh* Integer() { return u"integer"; }
    static const XMLCh* IsGeneric() { return u"isGeneric"; }
    static const XMLCh* IsHidden() { return u"isHidden"; }
    static const XMLCh* IsHiddenAlias() { return u"isHiddenAlias"; }
    static const XMLCh* Item() { return u"item"; }
    static const XMLCh* ItemsDefaultable() { return u"itemsDefaultable"; }
    static const XMLCh* Keyword() { return u"keyword"; }
    static const XMLCh* LengthLimit() { return u"lengthLimit"; }
    static const XMLCh* Line() { return u"line"; }
    static const XMLCh* List() { return u"list"; }
    static const XMLCh* Map() { return u"map"; }
    static const XMLCh* Max() { return u"max"; }
    static const XMLCh* MaxSize() { return u"maxSize"; }
    static const XMLCh* Min() { return u"min"; }
    static const XMLCh* MinSize() { return u"minSize"; }
    static const XMLCh* Name() { return u"name"; }
    static const XMLCh* NoDefault() { return u"no default"; }
    static const XMLCh* Option() { return u"option"; }
    static const XMLCh* Optional() { return u"optional"; }
    static const XMLCh* Override() { return u"override"; }
    static const XMLCh* Precedent() { return u"precedent"; }
    static const XMLCh* Precedents() { return u"precedents"; }
    static const XMLCh* Property() { return u"property"; }
    static const XMLCh* Quantity() { return u"quantity"; }
    static const XMLCh* Raw() { return u"raw"; }
    static const XMLCh* Real() { return u"real"; }
    static const XMLCh* Record() { return u"record"; }
    static const XMLCh* Scope() { return u"scope"; }
    static const XMLCh* Section() { return u"section"; }
    static const XMLCh* Simulator() { return u"simulator"; }
    static const XMLCh* Size() { return u"size"; }
    static const XMLCh* SkippableOnRead() { return u"skippableOnRead"; }
    static const XMLCh* SkippableOnWrite() { return u"skippableOnWrite"; }
    static const XMLCh* Specified() { return u"specified"; }
    static const XMLCh* String() { return u"string"; }
    static const XMLCh* StringTermination() { return u"stringTermination"; }
    static const XMLCh* SummaryMnemonic() { return u"summaryMnemonic"; }
    static const XMLCh* SupportLevel() { return u"supportLevel"; }
    static const XMLCh* Termination() { return u"termination"; }
    static const XMLCh* True() { return u"true"; }
    static const XMLCh* Type() { return u"type"; }
    static const XMLCh* UnsupportedBy() { return u"unsupportedBy"; }
    static const XMLCh* Val() { return u"val"; }
    static const XMLCh* ValidOptions() { return u"validOptions"; }
    static const XMLCh* ValidSections() { return u"validSections"; }
    static const XMLCh* ValidSimulators() { return u"validSimulators"; }
    static const XMLCh* Validity() { return u"validity"; }
    static const XMLCh* Value() { return u"value"; }
    static const XMLCh* Values() { return u"values"; }
    static const XMLCh* Wildcard() { return u"wildcard"; }
    static const XMLCh* WriteStartingOnNewLine() { return u"writeStartingOnNewLine"; }
    static const XMLCh* WriteTerminationOnNewLine() { return u"writeTerminationOnNewLine"; }
    /// @}
};

} // namespace Veld::Quor::Core::Service::XML
