package com.olvane.kep.olvane.api.jni;

import java.io.File;
import java.io.IOException;
import java.io.InputStream;
import java.nio.file.Files;
import java.nio.file.Path;
import java.nio.file.Paths;
import java.util.ArrayList;
import java.util.List;
import java.util.Locale;
import java.util.function.Consumer;
import java.util.function.Function;

/** Goes through the places where the native library may be, and remembers why each one failed. */
final class LibrarySearch {
  private final Function<String, String> properties;
  private final Function<String, InputStream> resources;
  private final Consumer<Path> loader;
  private final String fileName = System.mapLibraryName("kepotl");
  private final String platform;
  private final List<String> tried = new ArrayList<>();
  private PackedLibrary packed;

  /**
   * Prepares a search.
   *
   * @param properties gives the value of a system property, or null
   * @param resources opens an absolute resource name, or gives null
   * @param loader loads a library file or throws {@link UnsatisfiedLinkError}
   */
  LibrarySearch(
      Function<String, String> properties,
      Function<String, InputStream> resources,
      Consumer<Path> loader) {
    this.properties = properties;
    this.resources = resources;
    this.loader = file -> load(loader, file);
    this.platform = platform(properties.apply("os.name"), properties.apply("os.arch"));
  }

  /** Loads a file; what the virtual machine refuses in other ways is a library that can't be loaded. */
  private static void load(Consumer<Path> loader, Path file) {
    try {
      loader.accept(file);
    } catch (RuntimeException e) {
      UnsatisfiedLinkError error = new UnsatisfiedLinkError(describe(e));
      error.initCause(e);
      throw error;
    }
  }

  /**
   * Names the platform of a packed library.
   *
   * @param os the value of {@code os.name}
   * @param arch the value of {@code os.arch}
   * @return such as {@code linux-amd64} or {@code linux-i386}
   */
  static String platform(String os, String arch) {
    String system = os.toLowerCase(Locale.ROOT).replace(' ', '-');
    switch (arch) {
      case "x86_64":
        return system + "-amd64";
      case "x86":
      case "i486":
      case "i586":
      case "i686":
        return system + "-i386";
      default:
        return system + "-" + arch;
    }
  }

  /**
   * Loads the first library that can be loaded.
   *
   * @return the file it was loaded from
   * @throws UnsatisfiedLinkError if there is none
   */
  Path load() {
    Path loaded = null;
    try {
      loaded = search();
    } catch (RuntimeException e) {
      // Such as a name that no file can have.
      tried.add(describe(e));
    }
    if (loaded == null) {
      throw new UnsatisfiedLinkError(message());
    }
    return loaded;
  }

  private Path search() {
    String explicit = properties.apply(NativeLibrary.LIBRARY_PROPERTY);
    if (explicit != null && !explicit.isEmpty()) {
      return tryFile("property " + NativeLibrary.LIBRARY_PROPERTY, Paths.get(explicit));
    }
    tried.add("property " + NativeLibrary.LIBRARY_PROPERTY + ": not set");
    Path loaded = tryLibraryPath();
    return loaded != null ? loaded : tryPacked();
  }

  /**
   * Loads another library from the folder of the one that was loaded.
   *
   * @param found the file that {@link #load} gave
   * @param name the name of the other library, without prefix and ending
   * @throws UnsatisfiedLinkError if it cannot be loaded
   */
  void loadBeside(Path found, String name) {
    Path file = found.resolveSibling(System.mapLibraryName(name));
    tried.clear();
    try {
      loader.accept(file);
    } catch (UnsatisfiedLinkError e) {
      if (packed == null || !isLoadedElsewhere(e) || !loadCopy("beside " + found, file)) {
        tried.add("beside " + found + ": "
            + (Files.exists(file) ? explain(file, e) : file + ": no such file"));
        throw new UnsatisfiedLinkError(file.getFileName() + " could not be loaded:\n  - "
            + String.join("\n  - ", tried)
            + "\nTo cure this, put the one of the same build beside " + found);
      }
    }
  }

  private Path tryLibraryPath() {
    String path = properties.apply("java.library.path");
    if (path == null || path.isEmpty()) {
      tried.add("java.library.path: empty");
      return null;
    }
    List<String> without = new ArrayList<>();
    for (String folder : path.split(File.pathSeparator)) {
      // An empty entry stands for the working directory, as it does for the virtual machine.
      Path file = Paths.get(folder, fileName);
      if (!Files.exists(file)) {
        without.add(folder.isEmpty() ? "the working directory" : folder);
        continue;
      }
      Path loaded = tryFile("java.library.path", file);
      if (loaded != null) {
        return loaded;
      }
    }
    if (!without.isEmpty()) {
      tried.add("java.library.path: no " + fileName + " in " + String.join(", ", without));
    }
    return null;
  }

  private Path tryPacked() {
    String place = "packed in the jar for " + platform;
    String folder = properties.apply(NativeLibrary.DIRECTORY_PROPERTY);
    if (folder == null || folder.isEmpty()) {
      folder = properties.apply("java.io.tmpdir");
    }
    Path file;
    try {
      packed = PackedLibrary.find(platform, resources);
      if (packed == null) {
        tried.add(place + ": none");
        return null;
      }
      file = packed.extract(Paths.get(folder), fileName);
    } catch (IOException | RuntimeException e) {
      tried.add(
          place + ": cannot be extracted below " + folder + ": " + describe(e) + ". Set -D"
              + NativeLibrary.DIRECTORY_PROPERTY + "=FOLDER to a folder that you can write to");
      return null;
    }
    try {
      loader.accept(file);
      return file;
    } catch (UnsatisfiedLinkError e) {
      if (!isLoadedElsewhere(e)) {
        tried.add(place + ": " + explain(file, e));
        return null;
      }
    }
    return loadCopy(place, file) ? file : null;
  }

  /** The virtual machine gives one file to one class loader only; another one needs a copy. */
  private boolean loadCopy(String place, Path file) {
    try {
      packed.loadCopy(file, loader);
      return true;
    } catch (IOException | UnsatisfiedLinkError e) {
      tried.add(place + ": a second copy of " + file + ": " + describe(e));
      return false;
    }
  }

  private Path tryFile(String place, Path given) {
    Path file = given.toAbsolutePath();
    if (!Files.exists(file)) {
      tried.add(place + ": " + file + ": no such file");
      return null;
    }
    try {
      loader.accept(file);
      return file;
    } catch (UnsatisfiedLinkError e) {
      tried.add(place + ": " + explain(file, e));
      return null;
    }
  }

  /** Tells whether a library was refused because another class loader has loaded its file. */
  static boolean isLoadedElsewhere(UnsatisfiedLinkError e) {
    return describe(e).contains("already loaded in another class");
  }

  /** Names the file, and adds the cure to the failures that people meet. */
  private String explain(Path file, UnsatisfiedLinkError e) {
    String text = file + ": " + describe(e).replace(file + ": ", "");
    if (text.contains("wrong ELF class")) {
      return text + ". This Java is " + platform + "; use a library or a Java of the same width";
    }
    if (text.contains("failed to map segment") || text.contains("Operation not permitted")) {
      return text + ". The file system does not allow programs to run (noexec); set -D"
          + NativeLibrary.DIRECTORY_PROPERTY + "=FOLDER to a folder on one that does";
    }
    if (text.contains("IllegalCallerException")) {
      return text + ". Allow it with --enable-native-access=ALL-UNNAMED";
    }
    if (text.contains("GLIBC")) {
      return text + ". The library was built for a newer system; build it on this one";
    }
    if (text.contains("cannot open shared object file")) {
      return text + ". Put the library that it needs beside it, or on LD_LIBRARY_PATH";
    }
    if (isLoadedElsewhere(e)) {
      return text + ". Load kepotl.jar in a class loader that both users share";
    }
    return text;
  }

  private static String describe(Throwable e) {
    String text = e.getMessage() == null ? "" : e.getMessage();
    return e instanceof Error || e.getClass() == IOException.class
        ? text
        : e.getClass().getSimpleName() + " " + text;
  }

  private String message() {
    StringBuilder text = new StringBuilder(fileName + " could not be loaded. Tried in this order:");
    for (String attempt : tried) {
      text.append("\n  - ").append(attempt);
    }
    return text.append("\nTo cure this, name a ").append(fileName).append(" for ").append(platform)
        .append(" with -D").append(NativeLibrary.LIBRARY_PROPERTY)
        .append("=FILE, or add its folder to -Djava.library.path").toString();
  }
}
