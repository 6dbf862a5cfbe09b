package com.olvane.kep.olvane.api.jni;

import java.nio.file.Path;

/**
 * Loads {@code libkepotl.so} once per class loader. It is looked for in this order:
 *
 * <ol>
 *   <li>the file named by the system property {@code kepotl.library}; when that is set, nothing
 *       else is tried;
 *   <li>the folders of {@code java.library.path};
 *   <li>the library packed in the jar for this operating system and architecture. It is extracted
 *       to a private folder below {@code kepotl.tmpdir}, or {@code java.io.tmpdir} where that is
 *       not set, and reused by later runs.
 * </ol>
 *
 * A file of another version than these classes is passed over, as is one without a version. The
 * libraries of the API are found beside it or by the system's own rules.
 */
public final class NativeLibrary {
  /** The system property that names the library file. */
  public static final String LIBRARY_PROPERTY = "kepotl.library";

  /** The system property that names the folder to extract packed libraries below. */
  public static final String DIRECTORY_PROPERTY = "kepotl.tmpdir";

  private static LibrarySearch search;
  private static Path location;
  private static boolean bulkLoaded;

  private NativeLibrary() {}

  /**
   * Loads the library unless this class loader has done so already.
   *
   * @throws UnsatisfiedLinkError if it cannot be loaded; the message names everything that was
   *     tried, why it failed and what to do about it
   */
  public static synchronized void load() {
    if (location == null) {
      search =
          new LibrarySearch(
              System::getProperty,
              NativeLibrary.class::getResourceAsStream,
              NativeLibrary::loadFile);
      location = search.load();
    }
  }

  /**
   * Loads {@code libkepotl-bulk.so}, the library of {@link OutlineBulk}, from the folder where
   * {@code libkepotl.so} was found, unless this class loader has done so already.
   *
   * @throws UnsatisfiedLinkError if either cannot be loaded; the message names everything that was
   *     tried, why it failed and what to do about it
   */
  static synchronized void loadBulk() {
    load();
    if (!bulkLoaded) {
      search.loadBeside(location, "kepotl-bulk");
      bulkLoaded = true;
    }
  }

  private static void loadFile(Path file) {
    LibraryVersion.check(file, LibraryVersion.ofClasses());
    System.load(file.toString());
  }

  /** {@return the version of these classes and of the libraries that go with them, or null where
   * the classes are used without the resources of kepotl.jar} */
  public static String version() {
    return LibraryVersion.ofClasses();
  }

  /** {@return the file that the library was loaded from, or null before it was loaded} */
  public static synchronized Path location() {
    return location;
  }
}
