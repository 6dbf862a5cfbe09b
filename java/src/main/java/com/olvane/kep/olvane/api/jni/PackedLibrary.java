package com.olvane.kep.olvane.api.jni;

import java.io.ByteArrayOutputStream;
import java.io.IOException;
import java.io.InputStream;
import java.io.InterruptedIOException;
import java.nio.channels.FileChannel;
import java.nio.channels.OverlappingFileLockException;
import java.nio.charset.StandardCharsets;
import java.nio.file.FileAlreadyExistsException;
import java.nio.file.Files;
import java.nio.file.LinkOption;
import java.nio.file.Path;
import java.nio.file.Paths;
import java.nio.file.StandardCopyOption;
import java.nio.file.StandardOpenOption;
import java.nio.file.attribute.PosixFileAttributes;
import java.nio.file.attribute.PosixFilePermissions;
import java.security.MessageDigest;
import java.security.NoSuchAlgorithmException;
import java.util.LinkedHashMap;
import java.util.Map;
import java.util.function.Consumer;
import java.util.function.Function;

/**
 * The native libraries packed in the jar for one platform, and their extraction. They go to a
 * folder of their own for each user and content, so that nobody meets another's files or another
 * version; a file appears there whole or not at all, and is checked against its hash before use.
 * Folders of other contents are removed when nobody uses them.
 */
final class PackedLibrary {
  /** The resource that lists the packed libraries: lines of hash, two blanks, file name. */
  static final String INDEX = "libraries.txt";

  private static final String PREFIX = "kepotl-";
  private static final int MOST_COPIES = 1000;
  private static final int LOCK_ATTEMPTS = 12000;
  private static final int LOCK_PAUSE_MS = 10;

  private final String folder;
  private final Function<String, InputStream> resources;
  private final Map<String, String> hashes = new LinkedHashMap<>();
  private final String identity;

  private PackedLibrary(String folder, Function<String, InputStream> resources, byte[] index) {
    this.folder = folder;
    this.resources = resources;
    this.identity = hash(index).substring(0, 16);
    for (String line : new String(index, StandardCharsets.UTF_8).split("\n")) {
      String[] parts = line.trim().split(" +", 2);
      if (parts.length == 2) {
        hashes.put(parts[1], parts[0]);
      }
    }
  }

  /**
   * Finds the packed libraries of a platform.
   *
   * @param platform such as {@code linux-amd64}
   * @param resources opens an absolute resource name, or gives null
   * @return the libraries, or null if none are packed for the platform
   * @throws IOException if the jar cannot be read
   */
  static PackedLibrary find(String platform, Function<String, InputStream> resources)
      throws IOException {
    String folder = "/native/" + platform + "/";
    byte[] index = read(resources, folder + INDEX);
    return index == null ? null : new PackedLibrary(folder, resources, index);
  }

  /**
   * Extracts the libraries, unless an earlier run has done so.
   *
   * @param base the folder below which they go
   * @param name the file wanted
   * @return the path of that file
   * @throws IOException if a file cannot be written or is not what the jar says
   */
  Path extract(Path base, String name) throws IOException {
    Path directory = privateDirectory(base);
    // Whoever removes folders that nobody uses may have been faster.
    while (!FolderUse.hold(directory)) {
      directory = privateDirectory(base);
    }
    FolderUse.removeUnused(
        directory.getParent(), PREFIX + user() + "-*", directory);
    if (!isComplete(directory)) {
      try (FileChannel channel = openLockFile(directory)) {
        lock(channel);
        for (Map.Entry<String, String> library : hashes.entrySet()) {
          place(directory.resolve(library.getKey()), library.getValue());
        }
      }
      if (!isComplete(directory)) {
        throw new IOException("the files in " + directory + " change while they are used");
      }
    }
    return directory.resolve(name);
  }

  /**
   * Loads a file under another name, for a class loader that may not share it. The copy lies
   * beside the file, so that it finds the same libraries, and is removed once it is loaded.
   *
   * @param file an extracted file
   * @param loader loads a library file or throws {@link UnsatisfiedLinkError}
   * @throws IOException if the copy cannot be made
   * @throws UnsatisfiedLinkError if it cannot be loaded either
   */
  void loadCopy(Path file, Consumer<Path> loader) throws IOException {
    try (FileChannel channel = openLockFile(file.getParent())) {
      lock(channel);
      // The virtual machine remembers the names of loaded files: each class loader takes the next.
      for (int number = 1; ; number++) {
        Path copy = temporary(file.resolveSibling(file.getFileName() + "." + number));
        try {
          Files.copy(file, copy);
          loader.accept(copy);
          return;
        } catch (UnsatisfiedLinkError e) {
          if (number == MOST_COPIES || !LibrarySearch.isLoadedElsewhere(e)) {
            throw e;
          }
        } finally {
          Files.deleteIfExists(copy);
        }
      }
    }
  }

  private static Object user() throws IOException {
    return Files.getAttribute(Paths.get("/proc/self"), "unix:uid");
  }

  private Path privateDirectory(Path base) throws IOException {
    Object user = user();
    Path directory = base.toAbsolutePath().resolve(PREFIX + user + "-" + identity);
    try {
      Files.createDirectory(
          directory,
          PosixFilePermissions.asFileAttribute(PosixFilePermissions.fromString("rwx------")));
    } catch (FileAlreadyExistsException e) {
      PosixFileAttributes found =
          Files.readAttributes(directory, PosixFileAttributes.class, LinkOption.NOFOLLOW_LINKS);
      Object owner = Files.getAttribute(directory, "unix:uid", LinkOption.NOFOLLOW_LINKS);
      if (!found.isDirectory()
          || !owner.equals(user)
          || !PosixFilePermissions.toString(found.permissions()).equals("rwx------")) {
        throw new IOException(directory + " exists and is not a private folder of this user");
      }
    }
    return directory;
  }

  private boolean isComplete(Path directory) throws IOException {
    for (Map.Entry<String, String> library : hashes.entrySet()) {
      if (!hasHash(directory.resolve(library.getKey()), library.getValue())) {
        return false;
      }
    }
    return true;
  }

  private static boolean hasHash(Path file, String hash) throws IOException {
    return Files.isRegularFile(file, LinkOption.NOFOLLOW_LINKS)
        && hash(Files.readAllBytes(file)).equals(hash);
  }

  private void place(Path file, String hash) throws IOException {
    if (hasHash(file, hash)) {
      return;
    }
    byte[] content = read(resources, folder + file.getFileName());
    if (content == null || !hash(content).equals(hash)) {
      throw new IOException("the jar is damaged: " + file.getFileName() + " is missing or changed");
    }
    Path temporary = temporary(file);
    Files.write(temporary, content);
    Files.move(temporary, file, StandardCopyOption.ATOMIC_MOVE);
  }

  /**
   * Names the temporary file of a file and clears away what a killed process left there. The name
   * is always the same, so that leftovers do not add up; only the holder of the lock uses it.
   */
  private static Path temporary(Path file) throws IOException {
    Path temporary = file.resolveSibling(file.getFileName() + ".tmp");
    Files.deleteIfExists(temporary);
    return temporary;
  }

  private static FileChannel openLockFile(Path directory) throws IOException {
    return FileChannel.open(
        directory.resolve("lock"),
        StandardOpenOption.CREATE,
        StandardOpenOption.WRITE,
        LinkOption.NOFOLLOW_LINKS);
  }

  /** Locks the file until the channel is closed. */
  private static void lock(FileChannel channel) throws IOException {
    for (int attempt = 0; attempt < LOCK_ATTEMPTS; attempt++) {
      try {
        if (channel.tryLock() != null) {
          return;
        }
      } catch (OverlappingFileLockException e) {
        // Another class loader of this virtual machine holds it.
      }
      try {
        Thread.sleep(LOCK_PAUSE_MS);
      } catch (InterruptedException e) {
        Thread.currentThread().interrupt();
        throw new InterruptedIOException("interrupted while waiting for another process");
      }
    }
    throw new IOException("another process does not finish extracting");
  }

  private static byte[] read(Function<String, InputStream> resources, String name)
      throws IOException {
    try (InputStream in = resources.apply(name)) {
      if (in == null) {
        return null;
      }
      ByteArrayOutputStream content = new ByteArrayOutputStream();
      byte[] buffer = new byte[65536];
      for (int count = in.read(buffer); count >= 0; count = in.read(buffer)) {
        content.write(buffer, 0, count);
      }
      return content.toByteArray();
    }
  }

  private static String hash(byte[] content) {
    try {
      StringBuilder text = new StringBuilder();
      for (byte b : MessageDigest.getInstance("SHA-256").digest(content)) {
        text.append(String.format("%02x", b));
      }
      return text.toString();
    } catch (NoSuchAlgorithmException e) {
      throw new AssertionError("every Java has SHA-256", e);
    }
  }
}
