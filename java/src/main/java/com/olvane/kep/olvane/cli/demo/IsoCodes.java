package com.olvane.kep.olvane.cli.demo;

import com.google.gson.JsonElement;
import com.google.gson.JsonObject;
import com.google.gson.JsonParseException;
import com.google.gson.JsonParser;
import java.io.IOException;
import java.io.Reader;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.ArrayList;
import java.util.List;

/** Countries, their subdivisions and the currencies, with translations of their names. */
final class IsoCodes {
  /** The languages that names are translated into. */
  static final String[] LANGUAGES = {"fr", "de", "ja"};

  /** One entry of a code list. */
  static final class Entry {
    /** The code, such as FR, FR-IDF or EUR. */
    final String code;

    /** The English name. */
    final String name;

    /** The formal English name of a country whose common name is another; null for others. */
    final String formalName;

    /** The names in {@link #LANGUAGES}; an element is null where there is no translation. */
    final String[] translations = new String[LANGUAGES.length];

    /** The kind of a subdivision, such as Province; null for other entries. */
    final String type;

    /** The code of the subdivision that this one is part of, or null. */
    final String parent;

    /** Flag and official name of a country, or null. */
    final String remark;

    private Entry(
        String code, String name, String formalName, String type, String parent, String remark) {
      this.code = code;
      this.name = name;
      this.formalName = formalName;
      this.type = type;
      this.parent = parent;
      this.remark = remark;
    }
  }

  private final List<Entry> countries = new ArrayList<>();
  private final List<Entry> subdivisions = new ArrayList<>();
  private final List<Entry> currencies = new ArrayList<>();

  private IsoCodes() {}

  /**
   * Reads the code lists.
   *
   * @param root the folder that holds {@code iso-codes/json} and {@code locale}
   * @return the lists
   * @throws IOException if a file is missing or not as expected
   */
  static IsoCodes read(Path root) throws IOException {
    IsoCodes codes = new IsoCodes();
    for (JsonObject country : list(root, "3166-1")) {
      String official = text(country, "official_name");
      String flag = text(country, "flag");
      String common = text(country, "common_name");
      codes.countries.add(
          new Entry(
              text(country, "alpha_2"),
              common == null ? text(country, "name") : common,
              common == null ? null : text(country, "name"),
              null,
              null,
              official == null ? flag : flag + " " + official));
    }
    for (JsonObject part : list(root, "3166-2")) {
      String code = text(part, "code");
      String parent = text(part, "parent");
      if (parent != null && parent.indexOf('-') < 0) {
        parent = code.substring(0, code.indexOf('-') + 1) + parent;
      }
      codes.subdivisions.add(
          new Entry(code, text(part, "name"), null, text(part, "type"), parent, null));
    }
    for (JsonObject currency : list(root, "4217")) {
      codes.currencies.add(
          new Entry(text(currency, "alpha_3"), text(currency, "name"), null, null, null, null));
    }
    for (int language = 0; language < LANGUAGES.length; language++) {
      translate(root, language, "3166-1", codes.countries);
      translate(root, language, "3166-2", codes.subdivisions);
      translate(root, language, "4217", codes.currencies);
    }
    return codes;
  }

  private static List<JsonObject> list(Path root, String standard) throws IOException {
    Path file = root.resolve("iso-codes/json/iso_" + standard + ".json");
    require(file);
    List<JsonObject> entries = new ArrayList<>();
    try (Reader reader = Files.newBufferedReader(file, StandardCharsets.UTF_8)) {
      JsonObject content = JsonParser.parseReader(reader).getAsJsonObject();
      for (JsonElement entry : content.getAsJsonArray(standard)) {
        entries.add(entry.getAsJsonObject());
      }
    } catch (JsonParseException | IllegalStateException | NullPointerException e) {
      throw new IOException(file + " is not the list of codes that was expected", e);
    }
    return entries;
  }

  private static void require(Path file) throws IOException {
    if (!Files.exists(file)) {
      throw new IOException(
          "There is no " + file + ". It comes with the package iso-codes: install that, or name a"
              + " folder that holds iso-codes/json and locale with --data");
    }
  }

  private static String text(JsonObject entry, String key) {
    JsonElement value = entry.get(key);
    return value == null ? null : value.getAsString();
  }

  private static void translate(Path root, int language, String standard, List<Entry> entries)
      throws IOException {
    Path file =
        root.resolve("locale/" + LANGUAGES[language] + "/LC_MESSAGES/iso_" + standard + ".mo");
    require(file);
    MessageCatalog catalog = MessageCatalog.read(file);
    for (Entry entry : entries) {
      String translation = catalog.translate(entry.name);
      entry.translations[language] =
          translation == null ? catalog.translate(entry.formalName) : translation;
    }
  }

  /** {@return the countries} */
  List<Entry> countries() {
    return countries;
  }

  /** {@return the subdivisions of all countries} */
  List<Entry> subdivisions() {
    return subdivisions;
  }

  /** {@return the currencies} */
  List<Entry> currencies() {
    return currencies;
  }
}
