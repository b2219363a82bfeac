// The entries of an XML sitemap as a table.
#pragma once

#include <QAbstractTableModel>
#include <filesystem>
#include <optional>

#include "xml_editor/xml_sitemap.h"

namespace xml_editor {

/// A row for each entry, a column for each Field in its order. UI thread.
class XmlTableModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  static constexpr int kColumns = static_cast<int>(kFields.size());

  /// Reads the entries of `file` anew; shows none for an empty path.
  void load(const std::filesystem::path& file);
  const XmlSitemap& sitemap() const { return m_sitemap; }

  /// The choice of a menu for an entry, and an entry's end. The signals tell how it went.
  void choose(int row, Field field, std::string_view value);
  void remove(int row);
  /// Values that were edited in another sitemap; their number, also when there are none. Nothing when they
  /// could not be written.
  std::optional<int> takeOver(const sitemaps::EditedValues& values);

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;
  /// A value that was typed. False when it was not taken; the entry has its old value then.
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;

 signals:
  void saved();
  /// Nothing was changed, and `change` says why.
  void notSaved(const xml_editor::Change& change);

 private:
  bool finish(const Change& change, int row);

  XmlSitemap m_sitemap;
};

}  // namespace xml_editor
