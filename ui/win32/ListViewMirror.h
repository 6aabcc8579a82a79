// The window of a list view. It holds no rows of its own: it asks for the cells that it draws and reports
// changes of the selection, which are followed as they come and never read back as a whole.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "ui/ListView.h"
#include "ui/win32/ControlMirror.h"
#include "ui/win32/IconLoader.h"

namespace ui::win32 {

class ListViewMirror : public ControlMirror {
  public:
    ListViewMirror(ListView& list, HWND window) : ControlMirror(list, window), list_(list) {}
    void Show(Aspect aspect) override;
    void ShowRescaled(uint32_t dpi) override;
    void ShowName(const std::wstring& name) override { SetWindowTextW(Window(), name.c_str()); }
    LRESULT OnNotify(const NMHDR& notification) override;
    std::optional<LRESULT> Answer(NMHDR& question) const override;
    void BeforeShortcut() override { FollowSelection(); }

    void TakeShown() override;

    // Header windows notify their dialog through the list that they belong to.
    HWND Header() const;

  protected:
    void ShowAll() override;

  private:
    enum class Press { Click, DoubleClick, RightClick };
    static constexpr int AllRows = -1;  // also: before the first

    void ShowExtendedStyle();
    void ShowHeaderPictures(uint32_t dpi);
    void ShowColumns();
    void AddColumn(size_t index);
    void ShowColumn(size_t index);
    void ShowArrow(size_t index) const;
    void ShowRows() const;
    void ShowSelection() const;
    void SelectNone() const;
    void SetState(int row, UINT state, bool on) const;
    int Next(int row, LPARAM kind) const;
    void ShowChecks() const;
    void AnnounceCheck(size_t row) const;

    void FillCell(LVITEMW& item) const;
    LRESULT FindRow(const NMLVFINDITEMW& wanted) const;
    bool RowBeginsWith(size_t row, std::wstring_view beginning) const;

    void SelectionChanged(const NMLISTVIEW& change);
    void FocusChanged(const NMLISTVIEW& change);
    void RangeChanged(const NMLVODSTATECHANGE& change);
    void Pressed(const NMITEMACTIVATE& place, Press press);
    void KeyPressed(int virtualKey);
    void FollowSelection();
    void ToggleCheck(size_t row);
    void ColumnResized(const NMHEADERW& change);

    ListView& list_;
    ImageListHandle headerPictures_;
    std::vector<Column> shownColumns_;
    // A text handed to the window has to outlive the next two that it asks for.
    mutable std::array<std::wstring, 4> cellTexts_;
    mutable size_t nextCellText_ = 0;
};

}  // namespace ui::win32
