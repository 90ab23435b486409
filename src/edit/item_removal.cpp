#include "edit/item_removal.h"

#include "base/text.h"
#include "edit/edit_run.h"
#include "music/items.h"

namespace tul::edit {

ItemRemoval itemRemoval;

namespace {

const std::string newLine(CrLf);

/// A page without the item is never written.
class ItemRemovalRun : public PageUpdateRun {
  public:
    ItemRemovalRun() : PageUpdateRun(editForm, Rewrite::ifChanged) {}

    void writeHead(Report&) override {}
    ReportEnd writeEnd(Report&, const RunResult& result) override { return endEdit(outcome(result), result); }

  protected:
    void updatePage(const PageInRun&) override;

  private:
    std::string outcome(const RunResult& result) const;

    const float number_ = numberOf(itemRemoval.txtDeleteSingleItem);
    int found_ = 0;
    std::int16_t itemCount_ = 0;
};

void ItemRemovalRun::updatePage(const PageInRun&) {
    showActivity("Updating");
    itemCount_ = musItemTable.itemCount;
    if (!isInteger(number_) || number_ < 1.0F || number_ > static_cast<float>(itemCount_)) return;
    found_ = static_cast<int>(number_);
    deleteItem(musItemTable[found_]);
    countChange();
}

/// Empty where the item was there and the page could not be written: what follows says why.
std::string ItemRemovalRun::outcome(const RunResult& result) const {
    if (found_ == 0) return "Removal unsuccessful - item not encountered.";
    if (!result.pages.front().isWritten) return {};
    return "Removed item " + plain(found_) + newLine + "Old file had " + plain(itemCount_) + " items," +
           newLine + "New file has " + plain(itemCount_ - 1) + " items.";
}

void cmdRunDeleteItem() {
    if (numberOf(itemRemoval.txtDeleteSingleItem) == 0.0F) {
        refuse("Missing item number");
    } else if (itemRemoval.txtDeleteItemFile.empty()) {
        refuse("Missing filename");
    } else {
        ItemRemovalRun run;
        runOnPage(run, itemRemoval.txtDeleteItemFile);
    }
}

/// What was typed into a window comes in single bytes, also where the disk has its names in UTF-8.
std::string keepPath(const std::string& typed) {
    for (const std::string& native : {typed, toUtf8(typed)})
        if (auto path = files().fromNative(native); path && files().info(*path)) return *path;
    return files().fromNative(typed).value_or(typed);
}

std::vector<Field> fields() {
    Field file = textField("txtDeleteItemFile", itemRemoval.txtDeleteItemFile,
                           "Music file that an item is removed from", keepPath);
    std::get<TextKind>(file.kind).isPath = true;
    return {
        file,
        textField("txtDeleteSingleItem", itemRemoval.txtDeleteSingleItem,
                  "Number of the item, from 1, in the order of the file"),
    };
}

std::vector<Command> commands() {
    return {{.name = "cmdRunDeleteItem", .caption = "Delete item", .run = cmdRunDeleteItem}};
}

}  // namespace

const Family itemRemovalFamily = {
    .tab = tabSpecial,
    .fields = fields,
    .commands = commands,
    .reset = [] { itemRemoval = {}; },
};

}  // namespace tul::edit
