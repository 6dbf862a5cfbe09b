package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.defs.outline.HoldingBean;
import com.olvane.kep.olvane.outline.Details;
import com.olvane.kep.olvane.outline.Member;
import com.olvane.kep.olvane.outline.Outline;
import java.io.BufferedReader;
import java.io.IOException;
import java.io.InputStreamReader;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.ArrayList;
import java.util.LinkedHashMap;
import java.util.List;
import java.util.Map;
import java.util.Optional;

/**
 * An alias table file, read without touching the outline: a header line with the name of the
 * table, a line per alias with member and alias, quoted or as two words, an end line.
 */
final class AliasFile {
  private static final String HEADER = "$ALT_NAME";
  private static final String END = "$END";

  /** What becomes of a line. */
  enum Outcome {
    /** The alias is set. */
    SET("set"),
    /** The member has this alias already. */
    SAME("there already"),
    /** There is no such member. */
    UNKNOWN("without such a member"),
    /** The alias does not fit. */
    TOO_LONG("over " + MemberRows.ALIAS_LIMIT + " bytes"),
    /** It has not two fields. */
    UNREADABLE("unreadable");

    final String words;

    Outcome(String words) {
      this.words = words;
    }

    /** Whether the alias is in the table afterwards. */
    boolean applies() {
      return this == SET || this == SAME;
    }
  }

  /** A line of the file. */
  static final class Line {
    final int number;
    final String member;
    final String alias;
    Outcome outcome = Outcome.UNREADABLE;

    Line(int number, String member, String alias) {
      this.number = number;
      this.member = member;
      this.alias = alias;
    }
  }

  /** The table that the file names; empty where it names none. */
  final String table;
  final List<Line> lines = new ArrayList<>();

  private AliasFile(String table) {
    this.table = table;
  }

  /** Reads a file. */
  static AliasFile read(Path path) throws IOException {
    // Not newBufferedReader, which gives up at a byte that is no UTF-8.
    try (BufferedReader in = new BufferedReader(
        new InputStreamReader(Files.newInputStream(path), StandardCharsets.UTF_8))) {
      String first = in.readLine();
      AliasFile file = new AliasFile(first == null ? "" : tableName(first.trim()));
      String text = in.readLine();
      for (int number = 2; text != null && !text.contains(END); number++) {
        if (!text.trim().isEmpty()) {
          file.lines.add(parse(number, text));
        }
        text = in.readLine();
      }
      return file;
    }
  }

  private static String tableName(String line) {
    if (!line.contains(HEADER) || line.length() < HEADER.length()) {
      return "";
    }
    for (String piece : line.substring(HEADER.length()).trim().split("'")) {
      if (!piece.isEmpty()) {
        return piece;
      }
    }
    return "";
  }

  private static Line parse(int number, String text) {
    List<String> fields = new ArrayList<>();
    boolean quoted = text.indexOf('"') >= 0;
    for (String piece : text.split(quoted ? "\"+" : "\\s+")) {
      // A quoted line may begin with its quote, and has blanks between its fields.
      if (!piece.trim().isEmpty()) {
        fields.add(piece.trim());
      }
    }
    boolean blankFirst = quoted && text.charAt(0) != '"' && text.trim().charAt(0) == '"';
    return fields.size() < 2 || blankFirst
        ? new Line(number, text.trim(), "") : new Line(number, fields.get(0), fields.get(1));
  }

  /** Finds out what would become of each line in a table of the outline, which may be new. */
  void judge(Outline outline, String into) {
    boolean isNew = !outline.aliasTables().names().contains(into);
    Details details = isNew ? Details.NONE : Details.NONE.aliases(into);
    for (Line line : lines) {
      if (line.alias.isEmpty()) {
        continue;
      }
      Optional<Member> found = outline.find(line.member, details);
      if (!found.isPresent()) {
        line.outcome = Outcome.UNKNOWN;
      } else if (HoldingBean.encodedLength(line.alias) > MemberRows.ALIAS_LIMIT) {
        line.outcome = Outcome.TOO_LONG;
      } else {
        boolean same = !isNew && found.get().alias(into).equals(line.alias);
        line.outcome = same ? Outcome.SAME : Outcome.SET;
      }
    }
  }

  /** The edit that sets what applies. */
  Edit edit(String into) {
    Map<String, String> aliases = new LinkedHashMap<>();
    lines.stream().filter(line -> line.outcome.applies())
        .forEach(line -> aliases.put(line.member, line.alias));
    return AliasTableEdits.fill(into, aliases);
  }
}
