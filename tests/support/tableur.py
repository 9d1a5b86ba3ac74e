"""A workbook without its results, worked out anew by LibreOffice."""
import os
import re
import subprocess
import zipfile


def forget_results(path, target):
    """A copy without the results beside the formulas, which then have to be worked out; gives how many there were."""
    count = 0
    with zipfile.ZipFile(path) as source, zipfile.ZipFile(target, "w", zipfile.ZIP_DEFLATED) as out:
        for name in source.namelist():
            data = source.read(name)
            if name.startswith("xl/worksheets/"):
                data, found = re.subn(rb"(</f>)<v>[^<]*</v>", rb"\1", data)
                count += found
            out.writestr(name, data)
    return count


def libreoffice(path, folder):
    """The path of the workbook that LibreOffice saves of this one; its profile stands in the folder."""
    out = os.path.join(folder, "soffice")
    subprocess.run(["soffice", f"-env:UserInstallation=file://{folder}/profil", "--headless", "--convert-to", "xlsx", "--outdir", out, path],
                   check=True, timeout=300, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    return os.path.join(out, os.path.basename(path))
