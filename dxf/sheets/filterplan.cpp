// SPDX-License-Identifier: GPL-2.0-or-later
// From the fields of a filter to the filter, and to the reason why it leaves nothing.
#include "dxf/sheets/filterplan_p.h"
#include "dxf/sheets/insertfilter_p.h"
#include <QCoreApplication>
#include <algorithm>
#include <unordered_set>

namespace {

class ReasonTexts
{
    Q_DECLARE_TR_FUNCTIONS(SheetFilter)

public:
    static QString noInserts() { return tr("The plan has no block inserts"); }
    static QString onlyNested()
    {
        return tr("All sheets of the plan lie inside blocks, where they do not count");
    }
    static QString noFrames()
    {
        return tr("No block insert of the plan has a polyline that could be a sheet frame");
    }
    static QString tagMissing() { return tr("Enter the tag that sheets must have"); }
    static QString cannotStand(const QString &text)
    {
        return tr("'%1' has characters that the plan's character set lacks").arg(text);
    }
    static QString noTag(const QString &tag, const QString &similar)
    {
        return similar.isEmpty() ? tr("No sheet has the attribute '%1'").arg(tag)
                                 : tr("No sheet has the attribute '%1'; there is '%2', however")
                                       .arg(tag, similar);
    }
    static QString noValue(const QString &tag, const QString &value, const QString &similar)
    {
        return similar.isEmpty()
                   ? tr("No sheet has the value '%2' in the attribute '%1'").arg(tag, value)
                   : tr("No sheet has the value '%2' in the attribute '%1'; there is '%3', however")
                         .arg(tag, value, similar);
    }
    static QString allExcluded(const QString &tag)
    {
        return tr("All sheets that would be left have the attribute '%1', so they are not included")
            .arg(tag);
    }
};

/// Whether people take the texts for the same.
bool isLike(QStringView a, QStringView b)
{
    return a.trimmed().compare(b.trimmed(), Qt::CaseInsensitive) == 0;
}

/// Looks for the step of choosing that loses the last sheets.
class Search
{
public:
    explicit Search(const DxfDrawing &drawing) : m_drawing(drawing) {}

    /// Whether an insert that can be a sheet meets the condition.
    template <typename Condition>
    [[nodiscard]] bool any(Condition condition) const
    {
        return std::ranges::any_of(m_drawing.Inserts(), [&](const DxfInsert &insert) {
            return dxftools::hasPolylines(m_drawing, insert) && condition(insert);
        });
    }
    [[nodiscard]] bool anyPasses(const SheetFilter &filter) const
    {
        const InsertFilter wanted(filter, m_drawing);
        return any([&](const DxfInsert &insert) { return wanted.passes(insert); });
    }
    /// Why the filter's include part, which passes nothing, does so.
    [[nodiscard]] QString whyNotIncluded(const SheetFilter::Attribute &include) const;

private:
    [[nodiscard]] QString tagLike(const QString &tag) const;
    [[nodiscard]] QString valueLike(const WantedText &tag, const QString &value) const;

    const DxfDrawing &m_drawing;
};

QString Search::whyNotIncluded(const SheetFilter::Attribute &include) const
{
    if (include.tag.isEmpty())
        return ReasonTexts::tagMissing();
    const WantedText tag(m_drawing, include.tag);
    if (!tag.isPossible())
        return ReasonTexts::cannotStand(include.tag);
    const bool hasTag =
        any([&](const DxfInsert &insert) { return tag.valueIn(insert).has_value(); });
    if (!hasTag)
        return ReasonTexts::noTag(include.tag, tagLike(include.tag));
    if (!WantedText(m_drawing, include.value).isPossible())
        return ReasonTexts::cannotStand(include.value);
    return ReasonTexts::noValue(include.tag, include.value, valueLike(tag, include.value));
}

QString Search::tagLike(const QString &tag) const
{
    QString other;
    std::unordered_set<quint32> known; // plans repeat few tags very often
    const bool isFound = any([&](const DxfInsert &insert) {
        return std::ranges::any_of(m_drawing.Attributes(insert), [&](const DxfAttribute &a) {
            return known.insert(a.tag).second &&
                   isLike(other = m_drawing.DisplayText(m_drawing.Tag(a)), tag);
        });
    });
    return isFound ? other : QString();
}

QString Search::valueLike(const WantedText &tag, const QString &value) const
{
    QString other;
    const bool isFound = any([&](const DxfInsert &insert) {
        const auto bytes = tag.valueIn(insert);
        return bytes && isLike(other = m_drawing.DisplayText(*bytes), value);
    });
    return isFound ? other : QString();
}

} // namespace

SheetFilter dxftools::filterOf(const FilterFields &fields)
{
    SheetFilter filter;
    if (fields.includes)
        filter.include = {.tag = fields.includeTag, .value = fields.includeValue};
    if (fields.excludes)
        filter.excludeTag = fields.excludeTag;
    return filter;
}

QString dxftools::whyNoSheets(const DxfDrawing &drawing, const SheetFilter &filter)
{
    if (drawing.Inserts().empty())
        return drawing.NestedSheetInserts().empty() ? ReasonTexts::noInserts()
                                                    : ReasonTexts::onlyNested();
    const Search search(drawing);
    if (!search.anyPasses({}))
        return ReasonTexts::noFrames();
    if (!search.anyPasses({.include = filter.include, .excludeTag = {}}))
        return search.whyNotIncluded(*filter.include);
    return search.anyPasses(filter) ? QString() : ReasonTexts::allExcluded(*filter.excludeTag);
}
