% Octave's products and factorizations on the drop-in under the reference
% LAPACK (run through with_orv.sh): A\b, chol, complex products and eig,
% each checked by a residual scaled by the problem's size and the unit
% roundoff. Complex and real products are checked against sums of
% element-wise products, which use no BLAS.
1;

function check(name, residual, scale)
  ratio = residual / (scale * eps);
  printf("%-32s scaled residual %8.3f\n", name, ratio);
  if !isfinite(ratio) || ratio > 30
    error("%s: scaled residual %g above 30", name, ratio);
  end
end

function c = plain_product(a, b)
  c = zeros(rows(a), columns(b));
  for j = 1:columns(b)
    c(:, j) = sum(a .* b(:, j).', 2);
  end
end

maps = fileread("/proc/self/maps");
for want = {getenv("ORV_EXPECT_BLAS"), getenv("ORV_EXPECT_LAPACK")}
  if isempty(strfind(maps, want{1}))
    error("%s is not loaded: Octave runs on another library", want{1});
  end
end

rand("seed", 7); randn("seed", 7);
for n = [7 64 200]
  a = randn(n);
  b = randn(n, 2);
  x = a \ b;
  check(sprintf("A\\b n=%d", n), norm(plain_product(a, x) - b), norm(a) * norm(x) * n);

  s = a' * a + n * eye(n);
  r = chol(s);
  check(sprintf("chol n=%d", n), norm(plain_product(r', r) - s), norm(s) * n);

  z = a + 1i * randn(n);
  w = randn(n, n + 3) + 1i * randn(n, n + 3);
  check(sprintf("complex product n=%d", n), norm(z * w - plain_product(z, w)), norm(z) * norm(w) * n);

  h = z + z';
  [v, d] = eig(h);
  check(sprintf("complex Hermitian eig n=%d", n), norm(plain_product(h, v) - v .* diag(d).'), norm(h) * n);
  e = eig(s);
  check(sprintf("real symmetric eig n=%d", n), abs(sum(e) - trace(s)), norm(s) * n);
end
printf("Octave on ORV: all residuals small\n");
