package com.olvane.kep.olvane.editor;

import java.io.IOException;
import java.io.Reader;
import java.io.Writer;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.Path;
import java.nio.file.Paths;
import java.nio.file.StandardCopyOption;
import java.util.Properties;

/** What the editor remembers of its user: a file in the user's configuration folder. */
final class UserSettings {
  private final Path file;
  private final Properties values = new Properties();

  private UserSettings(Path file) {
    this.file = file;
  }

  /** Reads the settings; there are none where the file is missing or can't be read. */
  static UserSettings read() {
    String base = System.getenv("XDG_CONFIG_HOME");
    Path folder = base == null || base.isEmpty()
        ? Paths.get(System.getProperty("user.home"), ".config") : Paths.get(base);
    UserSettings settings =
        new UserSettings(folder.resolve("outline-editor").resolve("settings.properties"));
    try (Reader in = Files.newBufferedReader(settings.file, StandardCharsets.UTF_8)) {
      settings.values.load(in);
    } catch (IOException | IllegalArgumentException e) {
      // Nothing is remembered, and what was is not worth a complaint.
    }
    return settings;
  }

  String text(String key, String otherwise) {
    return values.getProperty(key, otherwise);
  }

  int number(String key, int otherwise) {
    String value = text(key, "");
    return value.matches("\\d{1,6}") ? Integer.parseInt(value) : otherwise;
  }

  void put(String key, Object value) {
    values.setProperty(key, value.toString());
  }

  /** Writes the settings; where that fails they are not remembered. */
  void write() {
    try {
      Files.createDirectories(file.getParent());
      Path written = Files.createTempFile(file.getParent(), "settings", null);
      try (Writer out = Files.newBufferedWriter(written, StandardCharsets.UTF_8)) {
        values.store(out, null);
      }
      Files.move(written, file, StandardCopyOption.REPLACE_EXISTING);
    } catch (IOException e) {
      System.err.println("The settings of the window are not remembered: " + e.getMessage());
    }
  }
}
