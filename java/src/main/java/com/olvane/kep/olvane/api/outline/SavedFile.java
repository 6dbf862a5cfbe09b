package com.olvane.kep.olvane.api.outline;

/** Where {@code saveAsFileBegin} has put an outline, and how large the file is. */
public final class SavedFile {
  private String location;
  private int fileSize;

  /** Creates an empty object. */
  public SavedFile() {}

  /** {@return the path of the file} */
  public String getLocation() {
    return location;
  }

  /**
   * Sets the path of the file.
   *
   * @param location the path of the file
   */
  public void setLocation(String location) {
    this.location = location;
  }

  /** {@return the size of the file in bytes} */
  public int getFileSize() {
    return fileSize;
  }

  /**
   * Sets the size of the file in bytes.
   *
   * @param fileSize the size of the file in bytes
   */
  public void setFileSize(int fileSize) {
    this.fileSize = fileSize;
  }

  @Override
  public String toString() {
    return "SavedFile[location=" + location + ", fileSize=" + fileSize + "]";
  }
}
